// SPDX-License-Identifier: MIT
// Any text as a printer's device ID.
#include "DevConn/DeviceId.h"
#include "VYM/DescriptionText.h"
#include "fuzz/Fuzz.h"

#include <cstring>
#include <initializer_list>
#include <vector>

namespace {

using Search = char* (*)(char*);

// A value that was found lies inside the text, directly after one of the keys.
void check(std::string_view id, Search search, std::initializer_list<std::string_view> keys)
{
    std::vector<char> text(id.begin(), id.end()); // exact size: reading past the end is noticed
    text.push_back('\0');
    const char* found = search(text.data());
    if (found == nullptr)
        return;
    const auto at = static_cast<std::size_t>(found - text.data());
    require(at < text.size(), "the value lies in the text");
    require(at + std::strlen(found) < text.size(), "the value ends in the text");
    require(std::strchr(found, ';') == nullptr, "the value ends at its semicolon");
    const bool keyed = std::any_of(keys.begin(), keys.end(), [&](std::string_view key) {
        return at >= key.size()
            && description::equalNoCase(id.substr(at - key.size(), key.size()), key);
    });
    require(keyed, "a key stands in front of the value");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto id = asText(data, size);
    check(id, &deviceId::findModelKey, {"MODEL:", "MDL:"});
    check(id, &deviceId::findMfgKey, {"MFG:"});
    require(deviceId::findModelKey(nullptr) == nullptr, "no text, no value");
    return 0;
}
