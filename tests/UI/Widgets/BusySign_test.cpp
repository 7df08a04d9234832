// SPDX-License-Identifier: MIT
#include "UI/Widgets/BusySign.h"
#include "tests/UI/Waits.h"

#include <QAccessible>
#include <gtest/gtest.h>

TEST(BusySign, TurnsWhileItIsStartedAndShown)
{
    BusySign sign;
    const auto still = sign.grab().toImage();
    sign.startAnimation();
    sign.show();
    const auto before = sign.grab().toImage();
    EXPECT_NE(before, still) << "nothing is drawn before it is started";
    EXPECT_TRUE(comesTrue([&] { return sign.grab().toImage() != before; }));
    sign.stopAnimation();
    EXPECT_FALSE(sign.isAnimated());
    EXPECT_EQ(sign.grab().toImage(), still);
}

TEST(BusySign, GoesOnWhenItIsShownAgain)
{
    BusySign sign;
    sign.show();
    sign.startAnimation();
    sign.hide();
    sign.show();
    const auto before = sign.grab().toImage();
    EXPECT_TRUE(comesTrue([&] { return sign.grab().toImage() != before; }));
}

TEST(BusySign, IsABusyProgressBarToAScreenReader)
{
    BusySign sign;
    EXPECT_EQ(sign.maximum(), sign.minimum());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&sign)->role(), QAccessible::ProgressBar);
}
