// SPDX-License-Identifier: MIT
// The page for choosing the printer, in both variants: from a list of printers or by a typed
// address (SelectDevice1), or only from a list of print queues (SelectDevice2).
//
// Owns:      the list of printers; the form owns the controls.
// Threads:   the interface's own.
// Invariant: list, row, mode, Next and the order of the Tab key agree, wherever the focus is.
// Does not report errors of an address, and does not choose the next page.
#pragma once
#include "UI/InputNSMatrixControl.h"
#include "UI/Pages/DevicePageRule.h"
#include "UI/Pages/Page.h"
#include "UI/Pages/PrinterTable.h"

#include <QRadioButton>

class DevicePage final : public QObject, public Page {
    Q_OBJECT

public:
    enum class Variant : std::uint8_t { withAddress, queuesOnly };

    DevicePage(Form& form, Variant variant, PrinterSearchThread::Find find);

    void connectControls(); // call when no control is missing
    void setTexts() override;
    void dress() override;
    void enter() override; // starts the search for printers
    void takeFocus() override;
    void leave() override;
    [[nodiscard]] bool isBusy() const { return m_printers.isBusy(); } // with a search

    // The two modes; without the address input there is only the first.
    void choosePrinter();
    void chooseAddress();
    // False for an address of zeros only.
    [[nodiscard]] bool hasGoodAddress() const;
    void selectFirstNumber(); // only with the address input
    // The printer of the selected row, or one with the typed address, which is then shown without
    // leading zeros. Null: no row is selected.
    std::shared_ptr<PrinterInfo> chosenPrinter();

private:
    void takeList();
    void acceptPrinters();
    void enableChoice(bool isOn);
    void explainList();
    void searchAgain();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void setMode(DeviceMode mode);
    void showMode(DeviceMode mode);
    void setTabOrder(DeviceMode mode);
    void setTabOrderForIPAddressSelect();
    void setTabOrderForPrinterSelect();
    void updateNextButton();
    [[nodiscard]] bool hasAddress() const { return m_variant == Variant::withAddress; }
    [[nodiscard]] DeviceMode mode() const; // the list's until the user has chosen one
    [[nodiscard]] bool keepsFocus() const;

    Variant m_variant;
    PrinterTable m_printers;
    bool m_acceptsPrinter = true; // false once a list was empty

    QLabel* _selectDeviceTitle = nullptr;
    QLabel* _selectDeviceCmt = nullptr;
    // Only with the address input.
    QRadioButton* _assignPrtNameBtnCell = nullptr;
    QRadioButton* _assignIPAddressBtnCell = nullptr;
    InputNSMatrixControl* _IPAddressMatrix = nullptr;
    QWidget* _horizontalLine = nullptr;
    // Only without it.
    QLabel* _assignPrtNameTxt2 = nullptr;
};
