// SPDX-License-Identifier: MIT
#include "UI/Pages/SystemSign.h"
#include "UI/VYM_Utilities.h"

#include <gtest/gtest.h>

TEST(SystemSign, ShowsNothingForATypeThatHasNoSign)
{
    QLabel label;
    showSystemSign(label, 0);
    EXPECT_TRUE(label.pixmap().isNull());
    EXPECT_TRUE(label.isHidden());
}

TEST(SystemSign, ShowsASignForANoteAndForACaution)
{
    for (const auto type : {kNoteIcon, kCautionIcon}) {
        QLabel label;
        showSystemSign(label, type);
        EXPECT_FALSE(label.pixmap().isNull()) << type;
    }
}
