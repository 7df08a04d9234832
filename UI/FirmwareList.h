// SPDX-License-Identifier: MIT
// The firmware in the package, as rows of the opening page's table. The table's rows cannot be
// selected.
//
// Owns:      its rows, by value.
// Threads:   one at a time.
// Invariant: a missing text of a row is empty, never absent.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class FirmwareList {
public:
    using Text = std::optional<std::string>;

    // Appends a row.
    void addFirmwareList(const Text& type, const Text& version);
    [[nodiscard]] int numOfFirmware() const { return static_cast<int>(_firmwareList.size()); }

    [[nodiscard]] int numberOfRowsInTableView() const { return numOfFirmware(); }
    // Absent for a row that does not exist; empty for a column other than "FirmwareType" and
    // "FirmwareVersion".
    [[nodiscard]] Text objectValueForTableColumn(std::string_view columnIdentifier, int row) const;
    [[nodiscard]] static bool shouldSelectRow(int) { return false; }

private:
    struct Entry {
        std::string type;
        std::string version;
    };
    std::vector<Entry> _firmwareList;
};
