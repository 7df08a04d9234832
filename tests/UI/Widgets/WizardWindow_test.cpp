// SPDX-License-Identifier: MIT
#include "UI/Widgets/WizardWindow.h"

#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

TEST(WizardWindow, AsksBeforeItClosesAndStays)
{
    WizardWindow dialog;
    int asked = 0;
    dialog.setLeaveAction([&asked] { ++asked; });
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(dialog.close());
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(dialog.isVisible());
}

TEST(WizardWindow, StaysWithoutAQuestionAsWell)
{
    WizardWindow dialog;
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.close());
    EXPECT_TRUE(dialog.isVisible());
    dialog.hide();
    EXPECT_FALSE(dialog.isVisible());
}
