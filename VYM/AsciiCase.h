// SPDX-License-Identifier: MIT
// Letter case and comparison without it, for the whole program: only the 26 ASCII letters have a
// case. It ignores the user's locale: in a Turkish one the C library distinguishes "MINI" and
// "mini", and a printer would match its package in one language but not in another.
//
// Threads: any. Reads only its arguments.
#pragma once
#include <algorithm>
#include <string>
#include <string_view>

namespace ascii {

constexpr char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string upperCase(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

inline std::string lowerCase(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

constexpr bool sameNoCase(char left, char right)
{
    return left == right || upper(left) == upper(right); // most matching bytes are identical
}

constexpr bool equalNoCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), sameNoCase);
}

constexpr bool beginsNoCase(std::string_view text, std::string_view prefix)
{
    return text.size() >= prefix.size()
        && std::equal(prefix.begin(), prefix.end(), text.begin(), sameNoCase);
}

// Returns the difference of the first two characters that differ, both in lower case, or 0. The end
// of a text counts as a NUL.
constexpr int compareNoCase(std::string_view left, std::string_view right)
{
    const auto lowerAt = [](std::string_view text, std::size_t at) -> int {
        return at < text.size() ? static_cast<unsigned char>(lower(text[at])) : 0;
    };
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        if (const int difference = lowerAt(left, i) - lowerAt(right, i); difference != 0)
            return difference;
    }
    return 0;
}

} // namespace ascii
