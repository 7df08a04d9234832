// SPDX-License-Identifier: MIT
#include "tests/UI/Wizard.h"

#include <gtest/gtest.h>

TEST(PreparationPage, ShowsTheHintOnTheDownloadModeOnlyWhereItIsNeeded)
{
    for (const auto* answer : {"YES", "NO", "BOTH", ""}) {
        SCOPED_TRACE(answer);
        Wizard wizard;
        wizard.description({"PLATFORMVERSION MACOS=0", std::string("NEEDENTEROPERATION ") + answer})
            .open();
        const bool isNeeded = std::string_view(answer) == "YES";
        EXPECT_EQ(wizard.text("_updatePrepModeTxt"), isNeeded ? "Preference_DownLoadMode" : "");
    }
}

TEST(PreparationPage, ShowsTheNoteSignOnceItIsVisible)
{
    Wizard wizard;
    wizard.open();
    EXPECT_TRUE(wizard.find<QLabel>("_updateInfoImgView").pixmap().isNull());
    wizard.press("_openingNextBtn");
    EXPECT_FALSE(wizard.find<QLabel>("_updateInfoImgView").pixmap().isNull());
}
