// SPDX-License-Identifier: MIT
#include "VYM/SystemVersion.h"

#include <algorithm>

namespace {

constexpr unsigned long kMaxMajor = 99; // two BCD digits
constexpr unsigned long kMaxDigit = 9; // one BCD digit

// Takes the number at the front of text and the point after it; false without a digit.
bool takeNumber(std::string_view& text, unsigned long greatest, unsigned long& number)
{
    number = 0;
    std::size_t used = 0;
    for (; used < text.size() && text[used] >= '0' && text[used] <= '9'; ++used)
        number = std::min(number * 10 + static_cast<unsigned long>(text[used] - '0'), greatest);
    if (used == 0)
        return false;
    const bool point = used < text.size() && text[used] == '.';
    text.remove_prefix(point ? used + 1 : text.size());
    return true;
}

} // namespace

unsigned long systemVersionFromText(std::string_view text)
{
    unsigned long major = 0;
    unsigned long minor = 0;
    unsigned long patch = 0;
    if (!takeNumber(text, kMaxMajor, major))
        return 0;
    if (takeNumber(text, kMaxDigit, minor))
        takeNumber(text, kMaxDigit, patch);
    return (major / 10) << 12 | (major % 10) << 8 | minor << 4 | patch;
}

std::string_view versionIdOf(std::string_view osRelease)
{
    constexpr std::string_view kKey = "VERSION_ID=";
    while (!osRelease.empty()) {
        auto line = osRelease.substr(0, osRelease.find('\n'));
        osRelease.remove_prefix(std::min(line.size() + 1, osRelease.size()));
        if (line.substr(0, kKey.size()) != kKey)
            continue;
        line.remove_prefix(kKey.size());
        if (!line.empty() && (line.front() == '"' || line.front() == '\'')) {
            const char quote = line.front();
            line.remove_prefix(1);
            line = line.substr(0, line.find(quote));
        }
        return line;
    }
    return {};
}
