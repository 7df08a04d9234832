// SPDX-License-Identifier: MIT
// Finds what a text itself marks as personal: hosts and serial numbers in port strings ("lpd://",
// "net:", "serial="), IPv4 and IPv6 addresses, hardware addresses.
//
// Four numbers with points between them may be a version; they count as an address, because a
// report that shows too little is better than one that shows too much.
//
// Threads: any. Pure functions.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct MarkedName {
    enum class Kind : std::uint8_t { serial, host, address };
    Kind kind;
    std::string value; // decoded, in lower case

    bool operator==(const MarkedName&) const = default;
};

std::vector<MarkedName> markedNames(std::string_view text); // in their order, repeated ones too
