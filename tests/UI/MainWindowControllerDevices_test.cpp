// The pages on which the printer is chosen.
#include "tests/UI/Wizard.h"

#include <gtest/gtest.h>

namespace {

class MainWindowControllerDevices : public ::testing::Test {
protected:
    Wizard& threePrinters()
    {
        return wizard.printers(
            {{"A", "net:192.0.2.1"}, {"B", "net:192.0.2.2"}, {"C", "usb://m/p?serial=3"}});
    }
    [[nodiscard]] bool isPrinterMode() const { return isChosen("_assignPrtNameBtnCell"); }
    [[nodiscard]] bool isAddressMode() const { return isChosen("_assignIPAddressBtnCell"); }
    [[nodiscard]] bool isChosen(const char* radio) const
    {
        return wizard.find<QRadioButton>(radio).isChecked();
    }
    [[nodiscard]] bool isEnabled(const char* control) const
    {
        return wizard.find(control).isEnabled();
    }
    [[nodiscard]] QString cell(int column) const
    {
        return wizard.find<InputNSMatrixControl>("_IPAddressMatrix").cellAtColumn(column)->text();
    }
    void backAndForth()
    {
        wizard.press("_selDev1BackBtn");
        wizard.press("_prefNextBtn");
        wizard.waitForPrinters();
    }
    // The names in one line, which reads well where a test fails.
    [[nodiscard]] std::string order(const char* from) const
    {
        return wizard.tabOrder(from).join(QStringLiteral(" ")).toStdString();
    }
    Wizard wizard;
};

} // namespace

TEST_F(MainWindowControllerDevices, OfferThePrintersThatWereFound)
{
    threePrinters().open().toPrinters();
    EXPECT_EQ(wizard.page(), "SelectDevice1");
    EXPECT_EQ(wizard.table().model()->rowCount(), 3);
    EXPECT_TRUE(isPrinterMode());
    EXPECT_FALSE(isAddressMode());
    EXPECT_EQ(wizard.row(), 0);
    EXPECT_EQ(wizard.focus(), "_prtListTblView");
    EXPECT_TRUE(isEnabled("_selDev1NextBtn"));
    EXPECT_EQ(wizard.text("_searchTxt"), "");
}

TEST_F(MainWindowControllerDevices, LeaveOnlyTheAddressWhereNoPrinterWasFound)
{
    wizard.open().toPrinters();
    EXPECT_TRUE(isAddressMode());
    EXPECT_FALSE(isPrinterMode());
    EXPECT_FALSE(isEnabled("_assignPrtNameBtnCell"));
    EXPECT_EQ(wizard.table().focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(wizard.focus(), "cell 1");
    EXPECT_EQ(wizard.text("_searchTxt"), "Device_NoPrinters");
    wizard.controller->assignPrtNameBtnCellAction();
    EXPECT_TRUE(isAddressMode());
    EXPECT_FALSE(isPrinterMode());
}

TEST_F(MainWindowControllerDevices, OfferPrintersAgainOnceThereAreSome)
{
    wizard.open().toPrinters();
    threePrinters();
    backAndForth();
    EXPECT_TRUE(isEnabled("_assignPrtNameBtnCell"));
    EXPECT_TRUE(isAddressMode()) << "a mode that was chosen stays";
    wizard.press("_assignPrtNameBtnCell");
    EXPECT_TRUE(isPrinterMode());
    EXPECT_FALSE(isAddressMode());
    EXPECT_EQ(wizard.row(), 0);
    EXPECT_EQ(wizard.focus(), "_prtListTblView");
}

TEST_F(MainWindowControllerDevices, SwitchTheirModeByTheChoices)
{
    threePrinters().open().toPrinters();
    wizard.chooseRow(1);
    wizard.press("_assignIPAddressBtnCell");
    EXPECT_TRUE(isAddressMode());
    EXPECT_FALSE(isPrinterMode());
    EXPECT_EQ(wizard.row(), -1);
    EXPECT_EQ(wizard.focus(), "cell 1");
    wizard.press("_assignPrtNameBtnCell");
    EXPECT_TRUE(isPrinterMode());
    EXPECT_FALSE(isAddressMode());
    EXPECT_EQ(wizard.row(), 1);
    EXPECT_EQ(wizard.focus(), "_prtListTblView");
}

TEST_F(MainWindowControllerDevices, KeepAChoiceThatIsPressedAgain)
{
    threePrinters().open().toPrinters();
    wizard.press("_assignPrtNameBtnCell");
    EXPECT_TRUE(isPrinterMode());
    wizard.press("_assignIPAddressBtnCell");
    wizard.press("_assignIPAddressBtnCell");
    EXPECT_TRUE(isAddressMode());
}

TEST_F(MainWindowControllerDevices, SwitchTheirModeForAScreenReaderWhichDoesNotClick)
{
    threePrinters().open().toPrinters();
    wizard.find<QRadioButton>("_assignIPAddressBtnCell").toggle();
    EXPECT_TRUE(isAddressMode());
    EXPECT_FALSE(isPrinterMode());
    EXPECT_EQ(wizard.focus(), "cell 1");
    wizard.find<QRadioButton>("_assignIPAddressBtnCell").toggle();
    EXPECT_TRUE(isAddressMode());
    wizard.find<QRadioButton>("_assignPrtNameBtnCell").toggle();
    EXPECT_TRUE(isPrinterMode());
    EXPECT_FALSE(isAddressMode());
}

TEST_F(MainWindowControllerDevices, SwitchTheirModeByAClickIntoTheInput)
{
    threePrinters().open().toPrinters();
    auto* number = wizard.find<InputNSMatrixControl>("_IPAddressMatrix").cellAtColumn(2);
    QTest::mouseClick(number, Qt::LeftButton);
    EXPECT_TRUE(isAddressMode());
    EXPECT_EQ(wizard.row(), -1);
    EXPECT_EQ(wizard.focus(), "cell 3");
    wizard.chooseRow(2);
    EXPECT_TRUE(isPrinterMode());
    EXPECT_EQ(wizard.row(), 2);
}

TEST_F(MainWindowControllerDevices, KeepARowSelectedInPrinterMode)
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

TEST_F(MainWindowControllerDevices, AreWalkedByTheTabKeyInPrinterMode)
{
    threePrinters().open().toPrinters();
    EXPECT_EQ(order("_assignPrtNameBtnCell"),
              "_assignPrtNameBtnCell _prtListTblView _assignIPAddressBtnCell "
              "_selDev1CancelBtn _selDev1BackBtn _selDev1NextBtn");
    EXPECT_TRUE(isPrinterMode()) << "walking past a choice does not take it";
}

TEST_F(MainWindowControllerDevices, AreWalkedByTheTabKeyInAddressMode)
{
    threePrinters().open().toPrinters();
    wizard.press("_assignIPAddressBtnCell");
    EXPECT_EQ(order("_assignPrtNameBtnCell"),
              "_assignPrtNameBtnCell _assignIPAddressBtnCell cell 1 cell 2 cell 3 "
              "cell 4 _selDev1CancelBtn _selDev1BackBtn _selDev1NextBtn");
}

TEST_F(MainWindowControllerDevices, AreWalkedByTheTabKeyWithoutPrinters)
{
    wizard.open().toPrinters();
    EXPECT_EQ(order("_assignIPAddressBtnCell"),
              "_assignIPAddressBtnCell cell 1 cell 2 cell 3 cell 4 _selDev1CancelBtn "
              "_selDev1BackBtn _selDev1NextBtn");
}

TEST_F(MainWindowControllerDevices, SelectTheSamePrinterAgainWhereverItsRowIsNow)
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
    EXPECT_TRUE(isPrinterMode());
}

TEST_F(MainWindowControllerDevices, SelectTheFirstRowWhereThePrinterIsGoneOrWasTheFirst)
{
    threePrinters().open().toPrinters();
    wizard.printers({{"B", "net:192.0.2.2"}, {"A", "net:192.0.2.1"}});
    backAndForth();
    EXPECT_EQ(wizard.row(), 0) << "the first row is the default, whoever stands there";
    wizard.chooseRow(1);
    wizard.printers({{"B", "net:192.0.2.2"}, {"D", "net:192.0.2.4"}});
    backAndForth();
    EXPECT_EQ(wizard.row(), 0);
}

TEST_F(MainWindowControllerDevices, RememberTheRowOverAListThatWasNotFinished)
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

TEST_F(MainWindowControllerDevices, KeepTheAddressAndItsModeWhenThePageIsLeft)
{
    threePrinters().open().toPrinters();
    wizard.press("_assignIPAddressBtnCell");
    wizard.typeAddress({"192", "0", "2", "7"});
    backAndForth();
    EXPECT_TRUE(isAddressMode());
    EXPECT_EQ(cell(0) + cell(3), "1927");
    EXPECT_EQ(wizard.focus(), "cell 1");
    EXPECT_EQ(wizard.row(), -1);
}

TEST_F(MainWindowControllerDevices, TakeATypedAddressWithoutItsZeros)
{
    wizard.open().toPrinters();
    wizard.typeAddress({"010", "", "002", "7"});
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.page(), "ConfirmationScreen");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "Vymprint 200");
    EXPECT_EQ(wizard.text("_portNameTxt"), "10.0.2.7");
    EXPECT_EQ(cell(0) + '.' + cell(1) + '.' + cell(2) + '.' + cell(3), "10.0.2.7");
}

TEST_F(MainWindowControllerDevices, RefuseTheAddressOfZeros)
{
    wizard.open().toPrinters();
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.page(), "SelectDevice1");
    EXPECT_EQ(wizard.focus(), "cell 1");
    wizard.typeAddress({"0", "0", "0", "0"});
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.page(), "SelectDevice1");
    EXPECT_EQ(wizard.focus(), "cell 1");
    Alert told;
    told.title = "Device_AlertInputAddressTitle";
    told.message = "Device_AlertInputAddressMes";
    told.style = AlertStyle::critical;
    told.defaultButton = "OK";
    EXPECT_EQ(wizard.alerts.asked(), std::vector(2, told));
}

TEST_F(MainWindowControllerDevices, TakeTheChosenRow)
{
    threePrinters().open().toPrinters();
    wizard.typeAddress({"192", "0", "2", "9"});
    wizard.chooseRow(2);
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "C");
    EXPECT_EQ(wizard.text("_portNameTxt"), "usb://m/p?serial=3");
}

TEST_F(MainWindowControllerDevices, SayWhichPrinterIsAskedAndCanBeLeftMeanwhile)
{
    threePrinters().holdSearch("Slow one");
    wizard.open();
    wizard.press("_openingNextBtn");
    wizard.press("_prefNextBtn");
    EXPECT_EQ(wizard.text("_searchTxt"), "Device_Searching");
    EXPECT_TRUE(QTest::qWaitFor([this] { return wizard.text("_searchTxt") == "Device_Asking"; }));
    EXPECT_FALSE(isEnabled("_selDev1NextBtn"));
    wizard.press("_selDev1CancelBtn");
    EXPECT_EQ(wizard.alerts.asked().size(), 1U);
    wizard.press("_selDev1BackBtn");
    EXPECT_EQ(wizard.page(), "PreferencePage");
    QTest::qWait(30); // the search that was cancelled tells nothing
    EXPECT_EQ(wizard.table().model()->rowCount(), 0);
    EXPECT_EQ(wizard.page(), "PreferencePage");
}

TEST_F(MainWindowControllerDevices, SearchAnewOneAtATimeWheneverTheyAreEntered)
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

TEST_F(MainWindowControllerDevices, TakeAnAddressWhilePrintersAreStillAsked)
{
    threePrinters().holdSearch("Slow one");
    wizard.open();
    wizard.press("_openingNextBtn");
    wizard.press("_prefNextBtn");
    wizard.press("_assignIPAddressBtnCell");
    wizard.typeAddress({"192", "0", "2", "7"});
    EXPECT_TRUE(isEnabled("_selDev1NextBtn"));
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.page(), "ConfirmationScreen");
    EXPECT_EQ(wizard.text("_portNameTxt"), "192.0.2.7");
}

TEST_F(MainWindowControllerDevices, LeaveWhoeverTypesAloneWhenTheListArrives)
{
    for (const bool hasPrinters : {true, false}) {
        SCOPED_TRACE(hasPrinters);
        Wizard each;
        if (hasPrinters)
            each.printers({{"A", "net:192.0.2.1"}});
        each.holdSearch("Slow one");
        each.open();
        each.press("_openingNextBtn");
        each.press("_prefNextBtn");
        each.typeAddress({"192", "0", "2"});
        QTest::keyClicks(QApplication::focusWidget(), "1");
        const auto typedInto = each.focus();
        each.letSearchGo();
        each.waitForPrinters();
        EXPECT_EQ(each.focus(), typedInto);
        EXPECT_TRUE(each.find<QRadioButton>("_assignIPAddressBtnCell").isChecked());
        EXPECT_FALSE(qobject_cast<QLineEdit*>(QApplication::focusWidget())->hasSelectedText());
        EXPECT_EQ(each.row(), -1);
        EXPECT_EQ(each.find("_assignPrtNameBtnCell").isEnabled(), hasPrinters);
    }
}

TEST_F(MainWindowControllerDevices, LeaveTheFocusOnAButtonWhenTheListArrives)
{
    threePrinters().holdSearch("Slow one");
    wizard.open();
    wizard.press("_openingNextBtn");
    wizard.press("_prefNextBtn");
    wizard.find("_selDev1CancelBtn").setFocus();
    wizard.letSearchGo();
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.focus(), "_selDev1CancelBtn");
    EXPECT_EQ(wizard.row(), 0);
}

TEST_F(MainWindowControllerDevices, EndWhileASearchStillRuns)
{
    wizard.holdSearch("Slow one");
    wizard.open();
    wizard.press("_openingNextBtn");
    wizard.press("_prefNextBtn");
    wizard.controller.reset(); // cancels, and waits for the search
    EXPECT_EQ(wizard.searches(), 1);
}

TEST_F(MainWindowControllerDevices, ArePrintQueuesOnlyWhereTheFlagSaysSo)
{
    threePrinters().driverOnly().open().toPrinters();
    EXPECT_EQ(wizard.page(), "SelectDevice2");
    EXPECT_EQ(wizard.table().model()->rowCount(), 3);
    EXPECT_EQ(wizard.focus(), "_prtListTblView2");
    EXPECT_EQ(wizard.row(), 0);
    EXPECT_TRUE(isEnabled("_assignPrtNameTxt2"));
    wizard.chooseRow(1);
    wizard.key(Qt::Key_Return);
    EXPECT_EQ(wizard.page(), "ConfirmationScreen");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "B");
    EXPECT_EQ(wizard.text("_portNameTxt"), "net:192.0.2.2");
}

TEST_F(MainWindowControllerDevices, RememberTheQueueOnTheSecondPageAsWell)
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

TEST_F(MainWindowControllerDevices, OfferNothingOnTheSecondPageWithoutQueues)
{
    wizard.driverOnly().open().toPrinters();
    EXPECT_EQ(wizard.page(), "SelectDevice2");
    EXPECT_FALSE(isEnabled("_selDev2NextBtn"));
    EXPECT_FALSE(isEnabled("_assignPrtNameTxt2"));
    EXPECT_EQ(wizard.table().focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(wizard.text("_searchTxt2"), "Device_NoPrinters2");
    wizard.controller->showPrepPage2();
    EXPECT_EQ(wizard.page(), "SelectDevice2");
    wizard.press("_selDev2BackBtn");
    threePrinters();
    wizard.press("_prefNextBtn");
    wizard.waitForPrinters();
    EXPECT_TRUE(isEnabled("_selDev2NextBtn"));
    EXPECT_EQ(wizard.table().focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(wizard.row(), 0);
}
