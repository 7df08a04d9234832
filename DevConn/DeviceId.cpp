// SPDX-License-Identifier: MIT
#include "DevConn/DeviceId.h"

#include "VYM/AsciiCase.h"

#include <cstring>
#include <initializer_list>
#include <string_view>

namespace deviceId {

namespace {

bool isOneOf(std::string_view key, std::initializer_list<std::string_view> wanted)
{
    for (const auto candidate : wanted) {
        if (ascii::equalNoCase(key, candidate))
            return true;
    }
    return false;
}

char* findKey(char* text, std::initializer_list<std::string_view> wanted)
{
    char* found = nullptr;
    while (text != nullptr && *text != '\0') {
        char* colon = std::strchr(text, ':');
        if (colon == nullptr)
            break;
        // Only an upper-case M starts a key; lower-case keys are skipped.
        const std::string_view key(text, static_cast<std::size_t>(colon + 1 - text));
        if (*text == 'M' && isOneOf(key, wanted))
            found = colon + 1;
        char* semicolon = std::strchr(colon + 1, ';');
        if (semicolon == nullptr)
            break;
        *semicolon = '\0';
        text = semicolon + 1;
    }
    return found;
}

} // namespace

char* findModelKey(char* text)
{
    return findKey(text, {"MODEL:", "MDL:"});
}

char* findMfgKey(char* text)
{
    return findKey(text, {"MFG:"});
}

} // namespace deviceId
