// SPDX-License-Identifier: MIT
// The positions of the known keys' rows in one description text. One walk over the text serves all
// queries for first rows, and one more serves the rows of a key in order. A text of 16 MiB with a
// thousand rows at its end is walked twice, not a thousand times.
//
// Owns:      only positions, a few hundred bytes for any text.
// Threads:   none of its own; its owner holds a lock.
// Invariant: gives the same rows as description::findRow over the text.
#pragma once
#include <array>
#include <cstddef>
#include <string_view>

class RowIndex {
public:
    // Every key that has a getter. Rows of other keys need a walk for each query.
    static constexpr std::array<std::string_view, 21> kKeys = {
        "TGMNAME",         "MODELNAME",         "DRIVERNAME",         "PORT",
        "PORTNO",          "USEDXRL",           "NEEDENTEROPERATION", "NEEDEXITOPERATION",
        "ENTERTIME",       "EXITTIME",          "UPDATETIME",         "ALLOWVERSIONDOWN",
        "VERSION",         "SPECIALCMDPATTERN", "DEVICEIDMODELNAME",  "MAXPACKET",
        "PRODUCT",         "SUPPORT_COMMAND",   "PLATFORMVERSION",    "USEDRIVERONLY",
        "DEFAULTIPADDRESS"};

    // Must be called when the text changes.
    void forget() { m_isBuilt = false; }
    // The index-th row that begins with key, or empty. Between two calls of forget, text must be
    // the same in every call.
    std::string_view find(std::string_view text, std::string_view key, unsigned index);

private:
    struct Place {
        std::size_t first = std::string_view::npos; // of the key's first row
        std::size_t at = 0; // of the last row found
        unsigned index = 0; // of that row among the key's
    };
    void build(std::string_view text);

    std::array<Place, kKeys.size()> m_places{};
    bool m_isBuilt = false;
};
