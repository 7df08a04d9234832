// SPDX-License-Identifier: MIT
// The page for choosing the printer, in both variants.
#include "tests/UI/Wizard.h"

#include <gtest/gtest.h>

namespace {

class DevicePages : public ::testing::Test {
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
    // The names in one line, readable in a failure's message.
    [[nodiscard]] std::string order(const char* from) const
    {
        return wizard.tabOrder(from).join(QStringLiteral(" ")).toStdString();
    }
    Wizard wizard;
};

} // namespace

TEST_F(DevicePages, OfferThePrintersThatWereFound)
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

TEST_F(DevicePages, LeaveOnlyTheAddressWhereNoPrinterWasFound)
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

TEST_F(DevicePages, OfferPrintersAgainOnceThereAreSome)
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

TEST_F(DevicePages, SwitchTheirModeByTheChoices)
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

TEST_F(DevicePages, KeepAChoiceThatIsPressedAgain)
{
    threePrinters().open().toPrinters();
    wizard.press("_assignPrtNameBtnCell");
    EXPECT_TRUE(isPrinterMode());
    wizard.press("_assignIPAddressBtnCell");
    wizard.press("_assignIPAddressBtnCell");
    EXPECT_TRUE(isAddressMode());
}

TEST_F(DevicePages, SwitchTheirModeForAScreenReaderWhichDoesNotClick)
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

TEST_F(DevicePages, SwitchTheirModeByAClickIntoTheInput)
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

TEST_F(DevicePages, AreWalkedByTheTabKeyInPrinterMode)
{
    threePrinters().open().toPrinters();
    EXPECT_EQ(order("_assignPrtNameBtnCell"),
              "_assignPrtNameBtnCell _prtListTblView _assignIPAddressBtnCell "
              "_selDev1CancelBtn _selDev1BackBtn _selDev1NextBtn");
    EXPECT_TRUE(isPrinterMode()) << "walking past a choice does not take it";
}

TEST_F(DevicePages, AreWalkedByTheTabKeyInAddressMode)
{
    threePrinters().open().toPrinters();
    wizard.press("_assignIPAddressBtnCell");
    EXPECT_EQ(order("_assignPrtNameBtnCell"),
              "_assignPrtNameBtnCell _assignIPAddressBtnCell cell 1 cell 2 cell 3 "
              "cell 4 _selDev1CancelBtn _selDev1BackBtn _selDev1NextBtn");
}

TEST_F(DevicePages, AreWalkedByTheTabKeyWithoutPrinters)
{
    wizard.open().toPrinters();
    EXPECT_EQ(order("_assignIPAddressBtnCell"),
              "_assignIPAddressBtnCell cell 1 cell 2 cell 3 cell 4 _selDev1CancelBtn "
              "_selDev1BackBtn _selDev1NextBtn");
}

TEST_F(DevicePages, KeepTheAddressAndItsModeWhenThePageIsLeft)
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

TEST_F(DevicePages, TakeATypedAddressWithoutItsZeros)
{
    wizard.open().toPrinters();
    wizard.typeAddress({"010", "", "002", "7"});
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.page(), "ConfirmationScreen");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "Vymprint 200");
    EXPECT_EQ(wizard.text("_portNameTxt"), "10.0.2.7");
    EXPECT_EQ(cell(0) + '.' + cell(1) + '.' + cell(2) + '.' + cell(3), "10.0.2.7");
}

TEST_F(DevicePages, RefuseTheAddressOfZeros)
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

TEST_F(DevicePages, TakeTheChosenRow)
{
    threePrinters().open().toPrinters();
    wizard.typeAddress({"192", "0", "2", "9"});
    wizard.chooseRow(2);
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "C");
    EXPECT_EQ(wizard.text("_portNameTxt"), "usb://m/p?serial=3");
}

TEST_F(DevicePages, TakeAnAddressWhilePrintersAreStillQueried)
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

TEST_F(DevicePages, DoNotDisturbTypingWhenTheListArrives)
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

TEST_F(DevicePages, LeaveTheFocusOnAButtonWhenTheListArrives)
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

// A second visit: the mode was chosen on the first.
TEST_F(DevicePages, DoTheSameWithANewListWhereverTheFocusIs)
{
    for (const auto* button : {"_selDev1CancelBtn", "_selDev1BackBtn", ""}) {
        SCOPED_TRACE(button);
        Wizard each;
        each.printers({{"A", "net:192.0.2.1"}, {"B", "net:192.0.2.2"}}).open().toPrinters();
        each.chooseRow(1);
        each.press("_selDev1BackBtn");
        each.holdSearch("Slow one");
        each.press("_prefNextBtn");
        if (*button != '\0')
            each.find(button).setFocus();
        each.letSearchGo();
        each.waitForPrinters();
        EXPECT_EQ(each.focus(), *button != '\0' ? button : "_prtListTblView");
        EXPECT_EQ(each.row(), 1);
        EXPECT_TRUE(each.find("_selDev1NextBtn").isEnabled());
        each.table().clearSelection();
        EXPECT_EQ(each.row(), 1) << "a row stays selected";
        EXPECT_EQ(each.tabOrder("_assignPrtNameBtnCell").value(1), "_prtListTblView");
    }
}

TEST_F(DevicePages, SelectTheRowAgainAfterTheCancelQuestionWasAnsweredWithNo)
{
    threePrinters().open().toPrinters();
    wizard.chooseRow(2);
    wizard.press("_selDev1BackBtn");
    wizard.holdSearch("Slow one");
    wizard.press("_prefNextBtn");
    wizard.alerts.queueAnswer(alert::kAlternate);
    wizard.press("_selDev1CancelBtn"); // a click on the button gives it the focus
    wizard.letSearchGo();
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.row(), 2);
    EXPECT_TRUE(isEnabled("_selDev1NextBtn"));
}

TEST_F(DevicePages, ArePrintQueuesOnlyWhereTheFlagSaysSo)
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

TEST_F(DevicePages, OfferNothingOnTheSecondPageWithoutQueues)
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

TEST_F(DevicePages, GoFromChoiceToChoiceByTheArrowKeys)
{
    threePrinters().open().toPrinters();
    wizard.find("_assignPrtNameBtnCell").setFocus();
    wizard.key(Qt::Key_Down);
    EXPECT_TRUE(isAddressMode());
    EXPECT_EQ(wizard.focus(), "_assignIPAddressBtnCell");
    wizard.key(Qt::Key_Up);
    EXPECT_TRUE(isPrinterMode());
    EXPECT_EQ(wizard.focus(), "_assignPrtNameBtnCell");
    wizard.printers({});
    backAndForth();
    wizard.find("_assignIPAddressBtnCell").setFocus();
    wizard.key(Qt::Key_Up); // there is no printer to choose
    EXPECT_TRUE(isAddressMode());
}

TEST_F(DevicePages, ShowPrintersWhileOthersAreStillQueriedAndAcceptOneOfThem)
{
    threePrinters().appearing().open();
    wizard.holdSearch("B");
    wizard.press("_openingNextBtn");
    wizard.press("_prefNextBtn");
    ASSERT_TRUE(comesTrue([this] { return wizard.table().model()->rowCount() == 3; }));
    EXPECT_EQ(wizard.row(), -1);
    EXPECT_FALSE(wizard.find("_selDev1NextBtn").isEnabled());
    EXPECT_FALSE(wizard.find("_reasonsBtn").isEnabled());
    wizard.chooseRow(2);
    EXPECT_TRUE(wizard.find("_selDev1NextBtn").isEnabled());
    wizard.letSearchGo();
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.table().model()->rowCount(), 3);
    EXPECT_EQ(wizard.row(), 2);
    EXPECT_TRUE(wizard.find("_reasonsBtn").isEnabled());
}

TEST_F(DevicePages, OfferTheListAgainAsSoonAsAPrinterAppears)
{
    wizard.open().toPrinters();
    EXPECT_FALSE(wizard.find("_assignPrtNameBtnCell").isEnabled());
    threePrinters().appearing().holdSearch("B");
    wizard.key(Qt::Key_F5);
    ASSERT_TRUE(comesTrue([this] { return wizard.table().model()->rowCount() == 3; }));
    EXPECT_TRUE(wizard.find("_assignPrtNameBtnCell").isEnabled());
    wizard.letSearchGo();
    wizard.waitForPrinters();
    EXPECT_EQ(wizard.table().model()->rowCount(), 3);
}

TEST_F(DevicePages, FillInTheAddressThatTheUserTakesFromTheReasons)
{
    const Language english("en");
    wizard.setup.findPrinters = [](bool, const std::atomic<bool>&, PrinterSearchObserver&) {
        PrinterFinding other;
        other.printer = PrinterInfo::initWithPrinterName("Q", "", "socket://192.0.2.7:9100");
        other.reason = PrinterReason::otherConnection;
        TargetPrinters found;
        found.findings = {other};
        return found;
    };
    wizard.open().toPrinters();
    bool wasAsked = false;
    QTimer::singleShot(0, [&wasAsked] {
        auto* shown = QApplication::activeModalWidget();
        ASSERT_NE(shown, nullptr);
        for (auto* button : shown->findChildren<QPushButton*>()) {
            if (button->text() != "Use 192.0.2.7")
                continue;
            wasAsked = true;
            button->click();
            return;
        }
        shown->close();
    });
    wizard.press("_reasonsBtn");
    EXPECT_TRUE(wasAsked);
    const auto& address = wizard.find<InputNSMatrixControl>("_IPAddressMatrix");
    EXPECT_EQ(address.cellValueArray(), (std::vector<std::string>{"192", "0", "2", "7"}));
    EXPECT_TRUE(wizard.find<QRadioButton>("_assignIPAddressBtnCell").isChecked());
    EXPECT_TRUE(wizard.find("_selDev1NextBtn").isEnabled());
}

TEST_F(DevicePages, GiveATypedTargetTheModelOfThePackage)
{
    wizard.open().toPrinters();
    wizard.typeAddress({"192", "0", "2", "7"});
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "Vymprint 200");
}

// The page alone: the window shows the target's name, and never its model.
TEST_F(DevicePages, GiveATypedTargetThePackagesModelAsItsModelAndItsName)
{
    wizard.open();
    Form form;
    ASSERT_EQ(form.load(wizard.setup.formFile), "");
    DevicePage page(form, DevicePage::Variant::withAddress, {});
    page.connectControls();
    InputNSMatrixControl* address = nullptr;
    form.find(address, "_IPAddressMatrix");
    ASSERT_NE(address, nullptr);
    page.chooseAddress();
    address->setCellValue({"192", "0", "2", "7"});
    const auto printer = page.chosenPrinter();
    ASSERT_NE(printer, nullptr);
    EXPECT_EQ(printer->printerModel(), "Vymprint 200");
    EXPECT_EQ(printer->printerName(), "Vymprint 200");
    EXPECT_EQ(printer->printerURI(), "192.0.2.7");
}

TEST_F(DevicePages, FitTheirRowsAgainAfterTheFontHasChanged)
{
    threePrinters().open().toPrinters();
    const auto usual = QApplication::font();
    auto large = usual;
    large.setPointSizeF(30);
    QApplication::setFont(large);
    const auto& bar = wizard.find("_stepBar");
    const auto fits = [&] {
        return wizard.table().rowHeight(0) >= wizard.table().fontMetrics().height()
            && bar.height() >= bar.fontMetrics().height()
            && bar.height() == bar.sizeHint().height();
    };
    const int height = bar.height();
    EXPECT_TRUE(comesTrue([&] { return fits() && bar.height() > height; }));
    QApplication::setFont(usual);
    EXPECT_TRUE(comesTrue([&] { return fits() && bar.height() == height; }));
}
