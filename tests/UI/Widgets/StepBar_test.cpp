// SPDX-License-Identifier: MIT
#include "UI/Widgets/StepBar.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

const QStringList kNames = {"Package", "Preparation", "Printer"};

} // namespace

TEST(StepBar, SaysTheCurrentStepToAScreenReader)
{
    StepBar steps;
    steps.setSteps(kNames);
    EXPECT_EQ(steps.text(), "1. Package");
    steps.setCurrentStep(2);
    EXPECT_EQ(steps.text(), "3. Printer");
    EXPECT_EQ(steps.accessibleDescription(), "3/3");
}

TEST(StepBar, TakesNoFocus)
{
    const StepBar steps;
    EXPECT_EQ(steps.focusPolicy(), Qt::NoFocus);
}

TEST(StepBar, FitsIntoANarrowWindow)
{
    StepBar steps;
    steps.setSteps(kNames);
    EXPECT_LT(steps.minimumSizeHint().width(), steps.sizeHint().width());
    steps.resize(steps.minimumSizeHint());
    EXPECT_FALSE(steps.grab().isNull());
}

TEST(StepBar, LooksDifferentAtEachStepAndFromTheRight)
{
    StepBar steps;
    steps.setSteps(kNames);
    steps.resize(steps.sizeHint());
    const auto first = steps.grab().toImage();
    steps.setCurrentStep(1);
    const auto second = steps.grab().toImage();
    EXPECT_NE(first, second);
    steps.setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(steps.grab().toImage(), second);
}

TEST(StepBar, WorksWithoutSteps)
{
    StepBar steps;
    steps.setCurrentStep(4);
    EXPECT_EQ(steps.text(), "");
    steps.resize(10, 10);
    EXPECT_FALSE(steps.grab().isNull());
}
