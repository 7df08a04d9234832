// The pages on which the printer is chosen: their list, their two modes and their keyboard order.
#include "UI/MainWindowController.h"
#include "UI/Pages/DevicePageRule.h"
#include "UI/Text/TextKeys.h"

#include <QApplication>
#include <algorithm>

namespace {

// The name may take this share of the table before the port's column gets the rest.
constexpr double kWidestName = 0.6;

void fitColumns(QTableView& table)
{
    table.resizeColumnToContents(0);
    const int widest = qRound(table.viewport()->width() * kWidestName);
    const int half = table.viewport()->width() / 2;
    table.setColumnWidth(0, std::clamp(table.columnWidth(0), std::min(half, widest), widest));
}

void chain(const std::vector<QWidget*>& order)
{
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

} // namespace

vymTableView& MainWindowController::printerTable() const
{
    return _isUseDriverOnly ? *_prtListTblView2 : *_prtListTblView;
}

void MainWindowController::_makeTargetPrinterList()
{
    if (_printer_list.numberOfRowsInTableView() > 0) // else a list that was not finished
        m_formerPrinters = _printer_list.printerList();
    _printer_list.setPrinterList(std::nullopt);
    m_allowsEmptySelection = true;
    (_isUseDriverOnly ? m_printerTable2 : m_printerTable)->reloadData();
    showSearch(text(textkey::kDeviceSearching), true);
    m_search.start(_isUseDriverOnly);
}

void MainWindowController::takeTargetPrinterList(const TargetPrinters& found)
{
    _printer_list.setPrinterList(found.candidates);
    _selectedRowPrtList = rememberedRow(_selectedRowPrtList, m_formerPrinters, found.candidates);
    (_isUseDriverOnly ? m_printerTable2 : m_printerTable)->reloadData();
    fitColumns(printerTable());
    const auto* none = _isUseDriverOnly ? textkey::kDeviceNoPrinters2 : textkey::kDeviceNoPrinters;
    showSearch(found.candidates.empty() ? text(none) : QString(), false);
    // Whoever has gone on to the buttons or types an address is left there.
    auto* focus = _mainwindow->focusWidget();
    const bool isElsewhere = _buttonTabView->isAncestorOf(focus) || isTypingAddress();
    if (_isUseDriverOnly)
        applyDevicePage2Rule();
    else
        applyDevicePageRule();
    if (isElsewhere)
        focus->setFocus();
    else
        didSelectTabViewItem(_mainTabView->currentWidget()->objectName());
}

void MainWindowController::applyDevicePageRule()
{
    const auto rule =
        devicePageRule(_printer_list.numberOfRowsInTableView() > 0,
                       _assignPrtNameBtnCell->isChecked(), _assignIPAddressBtnCell->isChecked());
    if (rule.forgetsRow)
        _selectedRowPrtList = 0;
    _prtListTblView->setFocusPolicy(!rule.acceptsPrinter                       ? Qt::NoFocus
                                        : _assignIPAddressBtnCell->isChecked() ? Qt::ClickFocus
                                                                               : Qt::StrongFocus);
    if (rule.acceptsPrinter)
        _assignPrtNameBtnCell->setEnabled(true);
    if (rule.clicks && rule.clicked == DeviceMode::printer)
        _assignPrtNameBtnCell->click();
    if (rule.clicks && rule.clicked == DeviceMode::address && !isTypingAddress())
        _assignIPAddressBtnCell->click();
    if (!rule.acceptsPrinter)
        _assignPrtNameBtnCell->setEnabled(false);
    updateNextButton();
}

void MainWindowController::applyDevicePage2Rule()
{
    const bool hasPrinters = _printer_list.numberOfRowsInTableView() > 0;
    selectRowOf(*_prtListTblView2, _selectedRowPrtList);
    _selectedRowPrtList = hasPrinters ? selectedRowOf(*_prtListTblView2) : 0;
    _prtListTblView2->setFocusPolicy(hasPrinters ? Qt::StrongFocus : Qt::NoFocus);
    _assignPrtNameTxt2->setEnabled(hasPrinters);
    updateNextButton();
}

void MainWindowController::leaveDevicePage()
{
    rememberSelectedRow();
    m_search.cancel();
}

void MainWindowController::rememberSelectedRow()
{
    if (const int row = selectedRowOf(printerTable()); row >= 0)
        _selectedRowPrtList = row;
}

// Where no empty selection is allowed, a click that takes the selection away gives it back.
void MainWindowController::keepOneRowSelected()
{
    auto& table = printerTable();
    if (!m_allowsEmptySelection && selectedRowOf(table) < 0)
        selectRowOf(table, std::max(table.currentIndex().row(), 0));
    updateNextButton();
}

void MainWindowController::updateNextButton()
{
    const bool hasRow = selectedRowOf(printerTable()) >= 0;
    _selDev1NextBtn->setEnabled(_assignIPAddressBtnCell->isChecked() || hasRow);
    _selDev2NextBtn->setEnabled(hasRow);
}

void MainWindowController::showSearch(const QString& words, bool isSearching)
{
    auto* sign = _isUseDriverOnly ? _searchAnimation2 : _searchAnimation;
    (_isUseDriverOnly ? _searchTxt2 : _searchTxt)->setText(words);
    if (isSearching)
        sign->startAnimation();
    else
        sign->stopAnimation();
    sign->setVisible(isSearching);
}

bool MainWindowController::isTypingAddress() const
{
    return _assignIPAddressBtnCell->isChecked()
        && _IPAddressMatrix->isAncestorOf(_mainwindow->focusWidget());
}

// Told to nobody: whoever calls this does what belongs to the mode.
void MainWindowController::showMode(DeviceMode mode)
{
    const QSignalBlocker printer(_assignPrtNameBtnCell);
    const QSignalBlocker address(_assignIPAddressBtnCell);
    _assignPrtNameBtnCell->setChecked(mode == DeviceMode::printer);
    _assignIPAddressBtnCell->setChecked(mode == DeviceMode::address);
}

void MainWindowController::assignPrtNameBtnCellAction()
{
    const bool isPossible = _assignPrtNameBtnCell->isEnabled();
    showMode(isPossible ? DeviceMode::printer : DeviceMode::address);
    if (!isPossible)
        return;
    rememberSelectedRow();
    selectRowOf(*_prtListTblView, _selectedRowPrtList);
    m_allowsEmptySelection = false;
    _prtListTblView->setFocus();
    setTabOrderForPrinterSelect();
    updateNextButton();
}

void MainWindowController::assignIPAddressBtnCellAction()
{
    showMode(DeviceMode::address);
    rememberSelectedRow();
    m_allowsEmptySelection = true;
    selectRowOf(*_prtListTblView, -1);
    _IPAddressMatrix->selectText();
    setTabOrderForIPAddressSelect();
    updateNextButton();
}

void MainWindowController::selectIPAddressTextEvent()
{
    assignIPAddressBtnCellAction();
}

void MainWindowController::didSelectTabViewItem(const QString& identifier)
{
    if (identifier == QLatin1String(page::kSelectDevice2)) {
        _prtListTblView2->setFocus();
        selectRowOf(*_prtListTblView2, _selectedRowPrtList);
    } else if (identifier != QLatin1String(page::kSelectDevice1)) {
        return;
    } else if (_assignIPAddressBtnCell->isChecked()) {
        _IPAddressMatrix->selectText();
        setTabOrderForIPAddressSelect();
    } else {
        _prtListTblView->setFocus();
        selectRowOf(*_prtListTblView, _selectedRowPrtList);
        setTabOrderForPrinterSelect();
    }
}

// The line below the page ends each order; from there it goes on with the buttons.
void MainWindowController::setTabOrderForPrinterSelect()
{
    _IPAddressMatrix->setInKeyboardOrder(false);
    _prtListTblView->setFocusPolicy(Qt::StrongFocus);
    chain({_assignPrtNameBtnCell, _prtListTblView, _assignIPAddressBtnCell, _horizontalLine,
           _selDev1CancelBtn, _selDev1BackBtn, _selDev1NextBtn});
}

void MainWindowController::setTabOrderForIPAddressSelect()
{
    if (_prtListTblView->focusPolicy() != Qt::NoFocus)
        _prtListTblView->setFocusPolicy(Qt::ClickFocus);
    _IPAddressMatrix->setInKeyboardOrder(true);
    chain({_assignPrtNameBtnCell, _assignIPAddressBtnCell, _IPAddressMatrix, _horizontalLine,
           _selDev1CancelBtn, _selDev1BackBtn, _selDev1NextBtn});
}
