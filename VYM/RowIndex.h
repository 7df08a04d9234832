// Where the rows of the known keys stand in one description text: every question is answered from
// one walk over the text, and the rows of a key asked for in order from one more. A text of 16 MiB
// with a thousand rows at its end is read at once, not a thousand times.
//
// Owns:      positions only, a few hundred bytes whatever the text.
// Threads:   none of its own; its owner holds a lock.
// Invariant: gives the same rows as description::findRow over the text.
#pragma once
#include <array>
#include <cstddef>
#include <string_view>

class RowIndex {
public:
    // Every key that has a getter. The rows of any other key are found too, by a walk of their own.
    static constexpr std::array<std::string_view, 21> kKeys = {
        "TGMNAME",         "MODELNAME",         "DRIVERNAME",         "PORT",
        "PORTNO",          "USEDXRL",           "NEEDENTEROPERATION", "NEEDEXITOPERATION",
        "ENTERTIME",       "EXITTIME",          "UPDATETIME",         "ALLOWVERSIONDOWN",
        "VERSION",         "SPECIALCMDPATTERN", "DEVICEIDMODELNAME",  "MAXPACKET",
        "PRODUCT",         "SUPPORT_COMMAND",   "PLATFORMVERSION",    "USEDRIVERONLY",
        "DEFAULTIPADDRESS"};

    // To be called when the text changes.
    void forget() { m_isBuilt = false; }
    // The index-th row that begins with key, or empty. text is the same in every call between two
    // calls of forget.
    std::string_view find(std::string_view text, std::string_view key, unsigned index);

private:
    struct Place {
        std::size_t first = std::string_view::npos; // of the key's first row
        std::size_t at = 0; // of the row that was found last
        unsigned index = 0; // which one that is
    };
    void build(std::string_view text);

    std::array<Place, kKeys.size()> m_places{};
    bool m_isBuilt = false;
};
