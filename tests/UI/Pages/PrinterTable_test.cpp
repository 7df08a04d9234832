// SPDX-License-Identifier: MIT
// The list of printers on a device page: making it, and selecting the same row again.
#include "tests/UI/Wizard.h"

#include <QHeaderView>
#include <gtest/gtest.h>

namespace {

class PrinterTables : public ::testing::Test {
protected:
    Wizard& threePrinters()
    {
        return wizard.printers(
            {{"A", "net:192.0.2.1"}, {"B", "net:192.0.2.2"}, {"C", "usb://m/p?serial=3"}});
    }
    [[nodiscard]] bool isEnabled(const char* control) const
    {
        return wizard.find(control).isEnabled();
    }
    void backAndForth()
    {
        wizard.press("_selDev1BackBtn");
        wizard.press("_prefNextBtn");
        wizard.waitForPrinters();
    }
    Wizard wizard;
};

} // namespace

TEST_F(PrinterTables, KeepARowSelectedInPrinterMode)
{
    threePrinters().open().toPrinters();
    wizard.chooseRow(1);
    const auto place = wizard.table().visualRect(wizard.table().model()->index(1, 0)).center();
    QTest::mouseClick(wizard.table().viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    EXPECT_EQ(wizard.row(), 1);
    wizard.table().clearSelection();
    EXPECT_EQ(wizard.row(), 1);
    EXPECT_TRUE(isEnabled("_selDev1NextBtn"));
}

TEST_F(PrinterTables, SelectTheSamePrinterAgainWhereverItsRowIsNow)
{
    threePrinters().open().toPrinters();
    wizard.chooseRow(1);
    wizard.printers({{"C", "usb://m/p?serial=3"}, {"A", "net:192.0.2.1"}, {"B", "net:192.0.2.2"}});
    backAndForth();
    EXPECT_EQ(wizard.row(), 2);
    wizard.press("_selDev1NextBtn");
    threePrinters();
    wizard.press("_prepBackBtn");
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.row(), 1);
}

TEST_F(PrinterTables, SelectTheFirstRowWhereThePrinterIsGoneOrWasTheFirst)
{
    threePrinters().open().toPrinters();
    wizard.printers({{"B", "net:192.0.2.2"}, {"A", "net:192.0.2.1"}});
    backAndForth();
    EXPECT_EQ(wizard.row(), 0) << "the first row is the default, whatever stands there";
    wizard.chooseRow(1);
    wizard.printers({{"B", "net:192.0.2.2"}, {"D", "net:192.0.2.4"}});
    backAndForth();
    EXPECT_EQ(wizard.row(), 0);
}

TEST_F(PrinterTables, RememberTheRowOverAListThatWasNotFinished)
{
    threePrinters().open().toPrinters();
    wizard.chooseRow(2);
    wizard.holdSearch("slow");
    wizard.press("_selDev1BackBtn");
    wizard.press("_prefNextBtn");
    EXPECT_EQ(wizard.row(), -1);
    wizard.press("_selDev1BackBtn");
    wizard.letSearchGo();
    wizard.press("_prefNextBtn");
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.row(), 2);
}

// The window gets its size when it is shown, after its texts and its fonts.
TEST(PrinterTable, ShowsItsTitlesInFullDuringTheFirstSearchInEveryLanguage)
{
    for (const auto* language : {"en", "de", "fr", "es", "ja", "zh_CN"}) {
        SCOPED_TRACE(language);
        const Language words(language);
        Wizard wizard;
        wizard.printers({{"A", "net:192.0.2.1"}}).holdSearch("Slow one");
        wizard.open();
        wizard.press("_openingNextBtn");
        wizard.press("_prefNextBtn");
        settle();
        const auto& table = wizard.table();
        ASSERT_EQ(table.model()->rowCount(), 0);
        for (const int column : {0, 1})
            EXPECT_GE(table.columnWidth(column), table.horizontalHeader()->sectionSizeHint(column));
        EXPECT_GE(table.columnWidth(0), table.viewport()->width() / 2);
        wizard.letSearchGo();
    }
}

TEST_F(PrinterTables, NameTheQueriedPrinterAndCanBeLeftMeanwhile)
{
    threePrinters().holdSearch("Slow one");
    wizard.open();
    wizard.press("_openingNextBtn");
    wizard.press("_prefNextBtn");
    EXPECT_EQ(wizard.text("_searchTxt"), "Device_Searching");
    EXPECT_TRUE(comesTrue([this] { return wizard.text("_searchTxt") == "Device_Asking"; }));
    EXPECT_FALSE(isEnabled("_selDev1NextBtn"));
    wizard.press("_selDev1CancelBtn");
    EXPECT_EQ(wizard.alerts.asked().size(), 1U);
    wizard.press("_selDev1BackBtn");
    EXPECT_EQ(wizard.page(), "PreferencePage");
    QTest::qWait(30); // the cancelled search reports nothing
    EXPECT_EQ(wizard.table().model()->rowCount(), 0);
    EXPECT_EQ(wizard.page(), "PreferencePage");
}

TEST_F(PrinterTables, SearchAgainOneAtATimeWheneverThePageIsEntered)
{
    threePrinters().holdSearch("Slow one");
    wizard.open();
    wizard.press("_openingNextBtn");
    for (int i = 0; i < 3; ++i) {
        wizard.press("_prefNextBtn");
        wizard.press("_selDev1BackBtn");
    }
    wizard.press("_prefNextBtn");
    wizard.letSearchGo();
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.table().model()->rowCount(), 3);
    EXPECT_EQ(wizard.row(), 0);
    EXPECT_GE(wizard.searches(), 2);
    EXPECT_EQ(wizard.searchesAtOnce(), 1);
}

TEST_F(PrinterTables, EndWhileASearchStillRuns)
{
    wizard.holdSearch("Slow one");
    wizard.open();
    wizard.press("_openingNextBtn");
    wizard.press("_prefNextBtn");
    wizard.controller.reset(); // cancels, and waits for the search
    EXPECT_EQ(wizard.searches(), 1);
}

TEST_F(PrinterTables, RememberTheQueueOnTheSecondPageAsWell)
{
    threePrinters().driverOnly().open().toPrinters();
    wizard.chooseRow(2);
    wizard.press("_selDev2NextBtn");
    wizard.printers({{"A", "net:192.0.2.1"}, {"C", "usb://m/p?serial=3"}});
    wizard.press("_prepBackBtn");
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.page(), "SelectDevice2");
    EXPECT_EQ(wizard.row(), 1);
    wizard.press("_selDev2BackBtn");
    EXPECT_EQ(wizard.page(), "PreferencePage");
}

TEST_F(PrinterTables, AreMadeAgainByAKeyAndKeepTheirRow)
{
    threePrinters().open().toPrinters();
    wizard.chooseRow(1);
    wizard.printers({{"D", "net:192.0.2.4"}, {"A", "net:192.0.2.1"}, {"B", "net:192.0.2.2"}});
    wizard.holdSearch("Slow one");
    wizard.key(Qt::Key_F5); // the button is seen to be pressed for a moment
    EXPECT_TRUE(comesTrue([this] { return !isEnabled("_searchAgainBtn"); }));
    wizard.letSearchGo();
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.searches(), 2);
    EXPECT_EQ(wizard.table().model()->rowCount(), 3);
    EXPECT_EQ(wizard.row(), 2);
    EXPECT_TRUE(isEnabled("_selDev1NextBtn"));
    EXPECT_TRUE(isEnabled("_searchAgainBtn"));
    EXPECT_EQ(wizard.focus(), "_prtListTblView");
}

TEST_F(PrinterTables, TellAScreenReaderHowManyPrintersThereAre)
{
    threePrinters().open().toPrinters();
    EXPECT_EQ(wizard.table().accessibleDescription(), "Device_Found");
}
