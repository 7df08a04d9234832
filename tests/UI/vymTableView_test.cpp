// SPDX-License-Identifier: MIT
#include "UI/vymTableView.h"
#include "tests/UI/Waits.h"
#include "tests/support/ScriptedTime.h"

#include <QSignalSpy>
#include <QStandardItemModel>
#include <gtest/gtest.h>

namespace {

class vymTableViewTest : public ::testing::Test {
protected:
    vymTableViewTest()
    {
        table.setModel(&model);
        table.setSelectionBehavior(QAbstractItemView::SelectRows);
        table.show();
        EXPECT_TRUE(becomesActive(table));
    }

    void click(int row)
    {
        const auto place = table.visualRect(model.index(row, 0)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    }
    int chosen() { return table.currentIndex().row(); }
    void putAnotherInFront()
    {
        other.show();
        other.activateWindow();
        ASSERT_TRUE(becomesActive(other));
    }

    ScriptedTime time; // a click counts by the time since the window has come back
    QStandardItemModel model{3, 2};
    vymTableView table;
    QWidget other;
};

TEST_F(vymTableViewTest, AClickIntoTheActiveWindowChoosesARow)
{
    click(2);
    EXPECT_EQ(chosen(), 2);
    click(1);
    EXPECT_EQ(chosen(), 1);
}

TEST_F(vymTableViewTest, AClickIntoTheInactiveWindowChoosesNothing)
{
    EXPECT_FALSE(table.acceptsFirstMouse());
    click(1);
    putAnotherInFront();
    QSignalSpy clicks(&table, &QAbstractItemView::clicked);
    click(2);
    EXPECT_EQ(chosen(), 1);
    EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(vymTableViewTest, TheClickThatBroughtTheWindowBackChoosesNothingEither)
{
    click(1);
    putAnotherInFront();
    table.activateWindow();
    ASSERT_TRUE(becomesActive(table));
    click(2);
    EXPECT_EQ(chosen(), 1);
    time.advance(51); // the next click counts as a user's
    click(2);
    EXPECT_EQ(chosen(), 2);
}

} // namespace
