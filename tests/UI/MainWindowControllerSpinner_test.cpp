#include "UI/MainWindowControllerSpinner.h"

#include <QAccessible>
#include <QTest>
#include <gtest/gtest.h>

TEST(MainWindowControllerSpinner, TurnsWhileItIsStartedAndShown)
{
    MainWindowControllerSpinner sign;
    const auto still = sign.grab().toImage();
    sign.startAnimation();
    sign.show();
    const auto before = sign.grab().toImage();
    EXPECT_NE(before, still) << "nothing is drawn before it is started";
    EXPECT_TRUE(QTest::qWaitFor([&] { return sign.grab().toImage() != before; }));
    sign.stopAnimation();
    EXPECT_FALSE(sign.isAnimated());
    EXPECT_EQ(sign.grab().toImage(), still);
}

TEST(MainWindowControllerSpinner, GoesOnWhenItIsShownAgain)
{
    MainWindowControllerSpinner sign;
    sign.show();
    sign.startAnimation();
    sign.hide();
    sign.show();
    const auto before = sign.grab().toImage();
    EXPECT_TRUE(QTest::qWaitFor([&] { return sign.grab().toImage() != before; }));
}

TEST(MainWindowControllerSpinner, IsABusyProgressBarToAScreenReader)
{
    MainWindowControllerSpinner sign;
    EXPECT_EQ(sign.maximum(), sign.minimum());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&sign)->role(), QAccessible::ProgressBar);
}
