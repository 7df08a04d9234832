// SPDX-License-Identifier: MIT
#include "UI/FirmwareList.h"

void FirmwareList::addFirmwareList(const Text& type, const Text& version)
{
    _firmwareList.push_back({type.value_or(""), version.value_or("")});
}

FirmwareList::Text FirmwareList::objectValueForTableColumn(std::string_view columnIdentifier,
                                                           int row) const
{
    if (row < 0 || row >= numOfFirmware())
        return std::nullopt;
    const auto& entry = _firmwareList[static_cast<std::size_t>(row)];
    if (columnIdentifier == "FirmwareType")
        return entry.type;
    if (columnIdentifier == "FirmwareVersion")
        return entry.version;
    return std::string();
}
