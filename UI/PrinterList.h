// SPDX-License-Identifier: MIT
// The printers of the device page, in the table's order, and their texts in the table.
//
// Owns:    its records, shared with every holder of one.
// Threads: one at a time.
#pragma once
#include "UI/PrinterInfo.h"

#include <string_view>
#include <vector>

class PrinterList {
public:
    using Records = std::vector<std::shared_ptr<PrinterInfo>>;

    [[nodiscard]] Records printerList() const { return m_list; } // a snapshot
    void setPrinterList(const std::optional<Records>& records); // absent: empties the list
    // Null for an index that is negative or past the end.
    [[nodiscard]] std::shared_ptr<PrinterInfo> printerInfoAtIndex(int index) const;

    [[nodiscard]] int numberOfRowsInTableView() const { return static_cast<int>(m_list.size()); }
    // Absent for a row past the end and for a text that the record does not have; empty for a
    // column other than "printername" and "portname".
    [[nodiscard]] std::optional<std::string>
    objectValueForTableColumn(std::string_view columnIdentifier, int row) const;
    [[nodiscard]] static bool shouldEditTableColumn(std::string_view, int) { return false; }

private:
    Records m_list;
};
