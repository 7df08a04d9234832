// SPDX-License-Identifier: MIT
#include "UI/Widgets/ListTable.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class ListTables : public ::testing::Test {
protected:
    ListTables()
    {
        view.setProperty("columnFields", QStringList{"_one_col", "_two_col"});
        view.setProperty("columnIdentifiers", QStringList{"one", "two"});
        table = new ListTable(view);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
    }
    void showRows(int count)
    {
        table->setDataSource({[count] { return count; },
                              [](std::string_view column, int row) -> std::optional<std::string> {
                                  if (row == 2)
                                      return std::nullopt;
                                  return std::string(column) + std::to_string(row);
                              },
                              [](int row) { return row != 1; },
                              {}});
    }
    [[nodiscard]] QVariant at(int row, int column, int role = Qt::DisplayRole) const
    {
        return table->index(row, column).data(role);
    }
    QTableView view;
    ListTable* table;
};

} // namespace

TEST_F(ListTables, HasNoRowsWithoutAList)
{
    EXPECT_EQ(table->rowCount(), 0);
    EXPECT_EQ(table->columnCount(), 2);
    EXPECT_EQ(selectedRowOf(view), -1);
}

TEST_F(ListTables, ShowsWhatTheListSays)
{
    showRows(3);
    EXPECT_EQ(at(0, 0), "one0");
    EXPECT_EQ(at(1, 1), "two1");
    EXPECT_FALSE(at(2, 0).isValid());
    EXPECT_FALSE(at(0, 0, Qt::EditRole).isValid());
    EXPECT_FALSE(at(0, 0, Qt::DecorationRole).isValid());
    EXPECT_FALSE(table->index(0, 0).flags().testFlag(Qt::ItemIsEditable));
}

TEST_F(ListTables, ObeysTheRulesOfAModel)
{
    showRows(3);
    const QAbstractItemModelTester tester(table,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    table->reloadData();
}

TEST_F(ListTables, MakesTextsSafeToShow)
{
    table->setDataSource({[] { return 1; },
                          [](std::string_view, int) { return std::string("<b>\x1B</b>"); },
                          [](int) { return true; },
                          {}});
    EXPECT_EQ(at(0, 0), "<b>\\x1b</b>");
    EXPECT_EQ(at(0, 0, Qt::ToolTipRole), "&lt;b&gt;\\x1b&lt;/b&gt;");
}

TEST_F(ListTables, AllowsOnlySelectionsThatTheListAllows)
{
    showRows(3);
    selectRowOf(view, 0);
    EXPECT_EQ(selectedRowOf(view), 0);
    selectRowOf(view, 1);
    EXPECT_EQ(selectedRowOf(view), -1);
    for (const int row : {-1, 3, 99}) {
        selectRowOf(view, 2);
        EXPECT_EQ(selectedRowOf(view), 2);
        selectRowOf(view, row);
        EXPECT_EQ(selectedRowOf(view), -1) << row;
    }
}

TEST_F(ListTables, SelectsNothingAfterReloading)
{
    showRows(3);
    selectRowOf(view, 2);
    table->reloadData();
    EXPECT_EQ(selectedRowOf(view), -1);
}

TEST_F(ListTables, TitlesItsColumnsByTheirFields)
{
    EXPECT_EQ(table->columnOfField("_two_col"), 1);
    EXPECT_EQ(table->columnOfField("_three_col"), -1);
    ListColumn{table, 1}.setTitle("Second");
    EXPECT_EQ(table->headerData(1, Qt::Horizontal, Qt::DisplayRole), "Second");
    EXPECT_EQ(table->headerData(0, Qt::Horizontal, Qt::DisplayRole), "");
    EXPECT_FALSE(table->headerData(2, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(table->headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}
