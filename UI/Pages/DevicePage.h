// The page on which the printer is chosen, in both of its variants: from a list of printers or by
// an address that is typed (SelectDevice1), or from a list of print queues alone (SelectDevice2).
//
// Owns:      the list of printers; the form owns the controls.
// Threads:   the interface's own.
// Invariant: list, row, mode, Next and the order of the Tab key fit together, whatever has the
//            focus.
// Does not say what is wrong with an address, nor what comes next.
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

    void connectControls(); // once the form says that none is missing
    void setTexts() override;
    void enter() override; // begins to make the list
    void takeFocus() override;
    void leave() override;
    [[nodiscard]] bool isBusy() const { return m_printers.isBusy(); } // with a search

    // The two modes; without the address there is only the first one.
    void choosePrinter();
    void chooseAddress();
    // False for an address of zeros only.
    [[nodiscard]] bool hasGoodAddress() const;
    void selectFirstNumber();
    // The printer of the selected row, or one at the typed address, which is then shown without
    // leading zeros. Null: no row is selected.
    std::shared_ptr<PrinterInfo> chosenPrinter();

private:
    void takeList();
    void searchAgain();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void setMode(DeviceMode mode);
    void showMode(DeviceMode mode);
    void setTabOrder(DeviceMode mode);
    void setTabOrderForIPAddressSelect();
    void setTabOrderForPrinterSelect();
    void updateNextButton();
    [[nodiscard]] bool hasAddress() const { return m_variant == Variant::withAddress; }
    [[nodiscard]] DeviceMode mode() const; // the list's until one was chosen
    [[nodiscard]] bool keepsFocus() const;

    Variant m_variant;
    PrinterTable m_printers;
    bool m_acceptsPrinter = true; // false once a list was empty

    QLabel* _selectDeviceTitle = nullptr;
    QLabel* _selectDeviceCmt = nullptr;
    // With the address only.
    QRadioButton* _assignPrtNameBtnCell = nullptr;
    QRadioButton* _assignIPAddressBtnCell = nullptr;
    InputNSMatrixControl* _IPAddressMatrix = nullptr;
    QWidget* _horizontalLine = nullptr;
    // Without it.
    QLabel* _assignPrtNameTxt2 = nullptr;
};
