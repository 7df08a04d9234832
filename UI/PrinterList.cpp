// SPDX-License-Identifier: MIT
#include "UI/PrinterList.h"

void PrinterList::setPrinterList(const std::optional<Records>& records)
{
    m_list = records.value_or(Records());
}

std::shared_ptr<PrinterInfo> PrinterList::printerInfoAtIndex(int index) const
{
    if (index < 0 || index >= numberOfRowsInTableView())
        return nullptr;
    return m_list[static_cast<std::size_t>(index)];
}

std::optional<std::string> PrinterList::objectValueForTableColumn(std::string_view columnIdentifier,
                                                                  int row) const
{
    const auto record = printerInfoAtIndex(row);
    if (record == nullptr)
        return std::nullopt;
    if (columnIdentifier == "printername")
        return record->printerName();
    if (columnIdentifier == "portname")
        return record->printerURI();
    return std::string();
}
