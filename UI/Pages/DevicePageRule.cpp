// SPDX-License-Identifier: MIT
#include "UI/Pages/DevicePageRule.h"

#include <algorithm>

namespace {

constexpr std::size_t kNumbersOfAddress = 4;

} // namespace

DevicePageRule devicePageRule(bool hasPrinters, bool printerChosen, bool addressChosen)
{
    if (!hasPrinters)
        return {false, true, DeviceMode::address};
    return {true, false,
            addressChosen && !printerChosen ? DeviceMode::address : DeviceMode::printer};
}

bool inputCheckForIPAddress(const std::vector<std::string>& values)
{
    return values.size() == kNumbersOfAddress
        && std::any_of(values.begin(), values.end(),
                       [](const auto& value) { return value != "0" && !value.empty(); });
}

std::string joinedAddress(const std::vector<std::string>& values)
{
    std::string address;
    for (const auto& value : values) {
        if (!address.empty())
            address += '.';
        address += value;
    }
    return address;
}
