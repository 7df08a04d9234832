// SPDX-License-Identifier: MIT
// The decisions of the device page: the effect of a new list of printers, and whether a typed
// address is valid.
//
// Owns:    nothing.
// Threads: any. Pure functions of their arguments.
// Does not decide which printers are listed, nor which row is selected again.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

enum class DeviceMode : std::uint8_t { printer, address };

// The effect of a new list on the page.
struct DevicePageRule {
    bool acceptsPrinter; // the table takes the focus, and its mode can be chosen
    bool forgetsRow; // there is no row to come back to
    DeviceMode mode;

    bool operator==(const DevicePageRule&) const = default;
};
// A mode that the user has already chosen stays, unless its list is empty.
DevicePageRule devicePageRule(bool hasPrinters, bool printerChosen, bool addressChosen);

// Four numbers that are not all zero. The input checks their range.
bool inputCheckForIPAddress(const std::vector<std::string>& values);
std::string joinedAddress(const std::vector<std::string>& values);
