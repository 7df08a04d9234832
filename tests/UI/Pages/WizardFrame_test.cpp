// SPDX-License-Identifier: MIT
#include "tests/UI/Wizard.h"

#include <QScreen>
#include <gtest/gtest.h>

TEST(WizardFrame, ShowsTheWindowInFrontAndInTheMiddle)
{
    Wizard wizard;
    wizard.open();
    EXPECT_TRUE(wizard.window().isActiveWindow());
    const auto middle = wizard.window().screen()->availableGeometry().center();
    EXPECT_LE((wizard.window().geometry().center() - middle).manhattanLength(), 4);
}

TEST(WizardFrame, ScrollsToTheControlThatGetsTheFocus)
{
    Wizard wizard;
    wizard.open().toPrinters();
    wizard.window().resize(420, 300);
    settle();
    const auto& cell = *wizard.find<InputNSMatrixControl>("_IPAddressMatrix").cellAtColumn(0);
    wizard.find("_selDev1CancelBtn").setFocus();
    wizard.controller->assignIPAddressBtnCellAction();
    EXPECT_FALSE(cell.visibleRegion().isEmpty());
}
