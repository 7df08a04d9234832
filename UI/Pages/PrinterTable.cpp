// SPDX-License-Identifier: MIT
#include "UI/Pages/PrinterTable.h"

#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/Look.h"

#include <algorithm>
#include <cassert>

namespace {

// The name may take this share of the table; the port's column gets the rest.
constexpr double kWidestName = 0.6;

void fitColumns(QTableView& table)
{
    table.resizeColumnToContents(0);
    const int widest = qRound(table.viewport()->width() * kWidestName);
    const int half = table.viewport()->width() / 2;
    table.setColumnWidth(0, std::clamp(table.columnWidth(0), std::min(half, widest), widest));
}

} // namespace

PrinterTable::PrinterTable(Form& form, const std::string& suffix, PrinterSearchThread::Find find)
    : m_search(std::move(find))
{
    form.require<QFrame>(("_prtListScrView" + suffix).c_str());
    form.findTable(_prtListTblView, m_table, ("_prtListTblView" + suffix).c_str());
    form.findColumn(_printerList_name_col, m_table, ("_printerList_name_col" + suffix).c_str());
    form.findColumn(_printerList_port_col, m_table, ("_printerList_port_col" + suffix).c_str());
    form.find(_searchAnimation, ("_searchAnimation" + suffix).c_str());
    form.find(_searchTxt, ("_searchTxt" + suffix).c_str());
    form.find(_searchAgainBtn, ("_searchAgainBtn" + suffix).c_str());
    form.find(_reasonsBtn, ("_reasonsBtn" + suffix).c_str());
}

void PrinterTable::connectControls()
{
    assert(_prtListTblView != nullptr && m_table != nullptr);
    m_table->setDataSource(
        {[this] { return m_printers.numberOfRowsInTableView(); },
         [this](std::string_view column, int row) {
             return m_printers.objectValueForTableColumn(column, row);
         },
         [](int) { return true; },
         [this](int row) {
             const auto printer = m_printers.printerInfoAtIndex(row);
             assert(printer != nullptr);
             const bool isUsb = printer->printerURI().value_or("").starts_with("usb:");
             return signIcon(isUsb ? QStringLiteral("usb") : QStringLiteral("network"),
                             *_prtListTblView, 1);
         }});
    connect(m_table, &QAbstractItemModel::modelReset, this, &PrinterTable::selectionChanged);
    connect(_prtListTblView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &PrinterTable::keepOneRowSelected);
    connect(&m_search, &PrinterSearchThread::asking, this, [this](const QString& printer) {
        showSearch(printer.isEmpty() ? words::text(textkey::kDeviceSearching)
                                     : words::text(textkey::kDeviceAsking, printer.toStdString()),
                   true);
    });
    connect(_searchAgainBtn, &QPushButton::clicked, this, &PrinterTable::searchAgainWanted);
    connect(_reasonsBtn, &QPushButton::clicked, this, &PrinterTable::reasonsWanted);
    _prtListTblView->viewport()->installEventFilter(this);
    connect(&m_search, &PrinterSearchThread::appeared, this, &PrinterTable::addPrinter);
    connect(&m_search, &PrinterSearchThread::finished, this, &PrinterTable::takeList);
}

void PrinterTable::setTexts()
{
    _printerList_name_col.setTitle(words::text(textkey::kDeviceListPrinterName));
    _printerList_port_col.setTitle(words::text(textkey::kDeviceListPortName));
    _prtListTblView->setAccessibleName(
        words::text(textkey::kDeviceSpecifyPrinterName).remove(u'&'));
    _searchAnimation->setAccessibleName(words::text(textkey::kDeviceSearching));
    _searchAgainBtn->setText(words::text(textkey::kDeviceSearchAgain));
    _reasonsBtn->setText(words::text(textkey::kDeviceReasons));
    // Both on no way of the Tab key, which goes from choice to choice.
    _searchAgainBtn->setShortcut(Qt::Key_F5);
    _reasonsBtn->setShortcut(Qt::Key_F1);
}

void PrinterTable::makeList(bool driverOnly)
{
    m_printers.setPrinterList(std::nullopt);
    m_allowsEmptySelection = true;
    m_table->reloadData();
    showSearch(words::text(textkey::kDeviceSearching), true);
    m_search.start(driverOnly);
}

// A row is inserted, so that the user's selection stays.
void PrinterTable::addPrinter(const std::shared_ptr<PrinterInfo>& printer)
{
    assert(printer != nullptr);
    auto printers = m_printers.printerList();
    printers.push_back(printer);
    m_table->appendRow([&] { m_printers.setPrinterList(printers); });
    if (printers.size() == 1)
        refit();
    emit appeared();
}

void PrinterTable::refit()
{
    fitColumns(*_prtListTblView);
}

// The table gets its width after the page is shown for the first time, when a search goes on and
// the list is still empty.
bool PrinterTable::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        refit();
    return QObject::eventFilter(watched, event);
}

void PrinterTable::takeList(const TargetPrinters& found)
{
    rememberSelectedRow(); // one that was chosen during the search
    m_found = found;
    m_printers.setPrinterList(found.candidates);
    _selectedRowPrtList = rememberedRow(_selectedRowPrtList, m_formerPrinters, found.candidates);
    m_table->reloadData();
    refit();
    showSearch({}, false);
    describe();
    emit listed();
}

// A screen reader hears that the list has arrived, and how long it is.
void PrinterTable::describe()
{
    const auto count = static_cast<std::uint32_t>(m_printers.numberOfRowsInTableView());
    _prtListTblView->setAccessibleDescription(words::text(textkey::kDeviceFound, count));
    m_announcer.announce(*_prtListTblView, _prtListTblView->accessibleDescription());
}

// The room of an empty note is the list's.
void PrinterTable::showNote(const QString& words)
{
    _searchTxt->setText(words);
    _searchTxt->setVisible(!words.isEmpty());
}

void PrinterTable::showSearch(const QString& words, bool isSearching)
{
    showNote(words);
    if (isSearching)
        _searchAnimation->startAnimation();
    else
        _searchAnimation->stopAnimation();
    _searchAnimation->setVisible(isSearching);
    _searchAgainBtn->setEnabled(!isSearching);
    _reasonsBtn->setEnabled(!isSearching);
}

void PrinterTable::rememberSelectedRow()
{
    if (!hasSelectedRow())
        return;
    _selectedRowPrtList = selectedRowOf(*_prtListTblView);
    m_formerPrinters = m_printers.printerList();
}

void PrinterTable::selectRememberedRow(bool allowsEmptySelection)
{
    m_allowsEmptySelection = true;
    selectRowOf(*_prtListTblView, _selectedRowPrtList);
    m_allowsEmptySelection = allowsEmptySelection;
}

void PrinterTable::deselect()
{
    m_allowsEmptySelection = true;
    selectRowOf(*_prtListTblView, -1);
}

bool PrinterTable::hasSelectedRow() const
{
    return selectedRowOf(*_prtListTblView) >= 0;
}

std::shared_ptr<PrinterInfo> PrinterTable::selectedPrinter() const
{
    return m_printers.printerInfoAtIndex(selectedRowOf(*_prtListTblView));
}

// If an empty selection is not allowed, a click that clears the selection restores it.
void PrinterTable::keepOneRowSelected()
{
    if (!m_allowsEmptySelection && !hasSelectedRow())
        selectRowOf(*_prtListTblView, std::max(_prtListTblView->currentIndex().row(), 0));
    emit selectionChanged();
}

#include "moc_PrinterTable.cpp"
