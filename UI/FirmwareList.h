// The firmware that the package carries, as rows of the opening page's table. The table shows; it
// never selects.
//
// Owns:      its rows, by value.
// Threads:   one at a time.
// Invariant: a text that a row does not have is empty, never absent.
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
    // None for a row that is not there; empty for a column that is neither "FirmwareType" nor
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
