// What the device page decides: what a new list of printers does to it, and whether a typed address
// is one.
//
// Owns:    nothing.
// Threads: any. Pure functions of their arguments.
// Does not decide which printers are listed, nor which row is selected again.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

enum class DeviceMode : std::uint8_t { printer, address };

// What a list that was just made does to the page.
struct DevicePageRule {
    bool acceptsPrinter; // the table takes the focus, and its mode can be chosen
    bool forgetsRow; // there is no row to come back to
    DeviceMode mode;

    bool operator==(const DevicePageRule&) const = default;
};
// A mode that the user has already chosen stays, unless there is nothing left to choose in it.
DevicePageRule devicePageRule(bool hasPrinters, bool printerChosen, bool addressChosen);

// Four numbers that are not all zero. Their range is checked by the entry.
bool inputCheckForIPAddress(const std::vector<std::string>& values);
std::string joinedAddress(const std::vector<std::string>& values);
