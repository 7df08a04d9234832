// SPDX-License-Identifier: MIT
#include "UI/Pages/DevicePage.h"

#include "UI/Pages/UnlistedPrinters.h"
#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"
#include "UI/vymParseController.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <cassert>
#include <vector>

namespace {

constexpr std::uint32_t kNumbersOfAddress = 4;

using Variant = DevicePage::Variant;

const char* identifierOf(Variant variant)
{
    return variant == Variant::withAddress ? "SelectDevice1" : "SelectDevice2";
}

Page::ButtonNames buttonsOf(Variant variant)
{
    if (variant == Variant::withAddress)
        return {"_selDev1BackBtn", "_selDev1NextBtn", "_selDev1CancelBtn"};
    return {"_selDev2BackBtn", "_selDev2NextBtn", "_selDev2CancelBtn"};
}

// Controls of both variants have the same names, except for a 2 at the end.
std::string suffixOf(Variant variant)
{
    return variant == Variant::withAddress ? "" : "2";
}

void chain(const std::vector<QWidget*>& order)
{
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

void nameCells(InputNSMatrixControl& address)
{
    address.setAccessibleName(words::text(textkey::kDeviceAddressName));
    QStringList cells;
    for (std::uint32_t cell = 1; cell <= kNumbersOfAddress; ++cell)
        cells << words::text(textkey::kDeviceAddressCell, cell);
    address.setCellNames(cells);
}

} // namespace

DevicePage::DevicePage(Form& form, Variant variant, PrinterSearchThread::Find find)
    : Page(form, identifierOf(variant), buttonsOf(variant)), m_variant(variant),
      m_printers(form, suffixOf(variant), std::move(find))
{
    form.find(_selectDeviceTitle, ("_selectDeviceTitle" + suffixOf(variant)).c_str());
    form.find(_selectDeviceCmt, ("_selectDeviceCmt" + suffixOf(variant)).c_str());
    if (!hasAddress()) {
        form.find(_assignPrtNameTxt2, "_assignPrtNameTxt2");
        return;
    }
    form.find(_assignPrtNameBtnCell, "_assignPrtNameBtnCell");
    form.find(_assignIPAddressBtnCell, "_assignIPAddressBtnCell");
    form.find(_IPAddressMatrix, "_IPAddressMatrix");
    form.find(_horizontalLine, "_horizontalLine");
}

void DevicePage::connectControls()
{
    m_printers.connectControls();
    connect(&m_printers, &PrinterTable::listed, this, &DevicePage::takeList);
    connect(&m_printers, &PrinterTable::appeared, this, &DevicePage::acceptPrinters);
    connect(&m_printers, &PrinterTable::reasonsWanted, this, &DevicePage::explainList);
    connect(&m_printers, &PrinterTable::searchAgainWanted, this, &DevicePage::searchAgain);
    connect(&m_printers, &PrinterTable::selectionChanged, this, &DevicePage::updateNextButton);
    if (!hasAddress())
        return;
    for (auto* choice : {_assignPrtNameBtnCell, _assignIPAddressBtnCell})
        choice->installEventFilter(this);
    _IPAddressMatrix->setInputMode(InputNSMatrixControl::kAddressMode);
    // A screen reader switches a radio button without a click.
    connect(_assignPrtNameBtnCell, &QRadioButton::toggled, this, &DevicePage::choosePrinter);
    connect(_assignIPAddressBtnCell, &QRadioButton::toggled, this, &DevicePage::chooseAddress);
    connect(_IPAddressMatrix, &InputNSMatrixControl::VYMMatrixSelect, this,
            &DevicePage::chooseAddress);
    // A click into the table selects its mode; so does a click into the address.
    connect(&m_printers.view(), &QTableView::pressed, this, &DevicePage::choosePrinter);
}

void DevicePage::setTexts()
{
    const auto printers = words::text(textkey::kDeviceSpecifyPrinterName);
    _selectDeviceTitle->setText(words::text(textkey::kDeviceDescription));
    _selectDeviceCmt->setText(
        words::text(hasAddress() ? textkey::kDeviceComment : textkey::kDeviceComment2));
    m_printers.setTexts();
    setButtonTexts(textkey::kNext);
    if (!hasAddress()) {
        _assignPrtNameTxt2->setText(printers);
        return;
    }
    _assignPrtNameBtnCell->setText(printers);
    _assignIPAddressBtnCell->setText(words::text(textkey::kDeviceSpecifyIPAddress));
    nameCells(*_IPAddressMatrix);
}

// The choices are a group each, so that a mode is set without their signals: the arrow keys go from
// one to the other here, and choose it, as between radio buttons everywhere.
bool DevicePage::eventFilter(QObject* watched, QEvent* event)
{
    constexpr std::array kArrows = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right};
    const auto* pressed =
        event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (pressed == nullptr
        || std::find(kArrows.begin(), kArrows.end(), pressed->key()) == kArrows.end())
        return QObject::eventFilter(watched, event);
    auto* other =
        watched == _assignPrtNameBtnCell ? _assignIPAddressBtnCell : _assignPrtNameBtnCell;
    if (other->isEnabled()) {
        other->click();
        other->setFocus(Qt::TabFocusReason); // a mode takes the focus into its input
    }
    return true;
}

void DevicePage::dress()
{
    m_printers.refit();
}

void DevicePage::enter()
{
    setTabOrder(mode());
    m_printers.makeList(!hasAddress());
}

void DevicePage::searchAgain()
{
    m_printers.rememberSelectedRow();
    enter();
}

void DevicePage::leave()
{
    m_printers.rememberSelectedRow();
    m_printers.cancel();
}

void DevicePage::takeFocus()
{
    if (mode() == DeviceMode::address)
        _IPAddressMatrix->selectText();
    else
        m_printers.view().setFocus();
}

// The user need not wait for the rest of the list; mode, focus and Next wait for it, unless the
// user chooses one of these rows.
void DevicePage::acceptPrinters()
{
    if (m_acceptsPrinter)
        return;
    m_acceptsPrinter = true;
    enableChoice(true);
    setTabOrder(mode());
}

void DevicePage::enableChoice(bool isOn)
{
    if (hasAddress())
        _assignPrtNameBtnCell->setEnabled(isOn);
    else
        _assignPrtNameTxt2->setEnabled(isOn);
}

void DevicePage::explainList()
{
    const auto address = explainUnlisted(m_printers.found(), hasAddress(), *content()->window());
    if (address.empty())
        return;
    chooseAddress();
    _IPAddressMatrix->setCellValue(address);
    _IPAddressMatrix->selectText();
}

// Applies all changes of a new list, wherever the focus is. A user who has gone on to the buttons
// or types an address keeps the focus there.
void DevicePage::takeList()
{
    const bool focusStays = keepsFocus();
    const auto rule =
        devicePageRule(!m_printers.isEmpty(), !hasAddress() || _assignPrtNameBtnCell->isChecked(),
                       hasAddress() && _assignIPAddressBtnCell->isChecked());
    m_acceptsPrinter = rule.acceptsPrinter;
    if (rule.forgetsRow)
        m_printers.forgetRow();
    const auto* none = hasAddress() ? textkey::kDeviceNoPrinters : textkey::kDeviceNoPrinters2;
    m_printers.showNote(m_printers.isEmpty() ? words::text(none) : QString());
    enableChoice(rule.acceptsPrinter);
    setMode(hasAddress() ? rule.mode : DeviceMode::printer);
    if (!focusStays)
        takeFocus();
}

bool DevicePage::keepsFocus() const
{
    const auto* focus = content()->window()->focusWidget();
    return buttonRow()->isAncestorOf(focus)
        || (mode() == DeviceMode::address && _IPAddressMatrix->isAncestorOf(focus));
}

DeviceMode DevicePage::mode() const
{
    return hasAddress() && _assignIPAddressBtnCell->isChecked() ? DeviceMode::address
                                                                : DeviceMode::printer;
}

// Applies a mode, except for the focus.
void DevicePage::setMode(DeviceMode mode)
{
    showMode(mode);
    if (mode == DeviceMode::printer)
        m_printers.selectRememberedRow(!hasAddress());
    else
        m_printers.deselect();
    setTabOrder(mode);
    updateNextButton();
}

// Without the buttons' signals: the caller applies the mode.
void DevicePage::showMode(DeviceMode mode)
{
    if (!hasAddress())
        return;
    const QSignalBlocker printer(_assignPrtNameBtnCell);
    const QSignalBlocker address(_assignIPAddressBtnCell);
    _assignPrtNameBtnCell->setChecked(mode == DeviceMode::printer);
    _assignIPAddressBtnCell->setChecked(mode == DeviceMode::address);
}

void DevicePage::choosePrinter()
{
    if (!m_acceptsPrinter) {
        showMode(DeviceMode::address);
        return;
    }
    m_printers.rememberSelectedRow();
    setMode(DeviceMode::printer);
    m_printers.view().setFocus();
}

void DevicePage::chooseAddress()
{
    if (!hasAddress())
        return;
    m_printers.rememberSelectedRow();
    setMode(DeviceMode::address);
    _IPAddressMatrix->selectText();
}

bool DevicePage::hasGoodAddress() const
{
    return mode() != DeviceMode::address
        || inputCheckForIPAddress(_IPAddressMatrix->cellValueArray());
}

void DevicePage::selectFirstNumber()
{
    assert(hasAddress());
    _IPAddressMatrix->selectTextAtColumn(0);
}

std::shared_ptr<PrinterInfo> DevicePage::chosenPrinter()
{
    if (!hasAddress() || _assignPrtNameBtnCell->isChecked())
        return m_printers.selectedPrinter();
    const auto address = _IPAddressMatrix->cellValueArray();
    const auto model = vymParseController::getModelName();
    _IPAddressMatrix->setCellValue(address);
    return PrinterInfo::initWithPrinterName(model, model, joinedAddress(address));
}

void DevicePage::updateNextButton()
{
    forwardButton()->setEnabled(mode() == DeviceMode::address || m_printers.hasSelectedRow());
}

void DevicePage::setTabOrder(DeviceMode mode)
{
    const auto reached = mode == DeviceMode::printer ? Qt::StrongFocus : Qt::ClickFocus;
    m_printers.view().setFocusPolicy(m_acceptsPrinter ? reached : Qt::NoFocus);
    if (!hasAddress())
        return;
    _IPAddressMatrix->setInKeyboardOrder(mode == DeviceMode::address);
    if (mode == DeviceMode::address)
        setTabOrderForIPAddressSelect();
    else
        setTabOrderForPrinterSelect();
}

// The line below the page ends each order; the buttons follow it.
void DevicePage::setTabOrderForPrinterSelect()
{
    assert(hasAddress());
    chain({_assignPrtNameBtnCell, &m_printers.view(), _assignIPAddressBtnCell, _horizontalLine,
           cancelButton(), backButton(), forwardButton()});
}

void DevicePage::setTabOrderForIPAddressSelect()
{
    assert(hasAddress());
    chain({_assignPrtNameBtnCell, _assignIPAddressBtnCell, _IPAddressMatrix, _horizontalLine,
           cancelButton(), backButton(), forwardButton()});
}

#include "moc_DevicePage.cpp"
