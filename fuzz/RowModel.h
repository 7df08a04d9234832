// SPDX-License-Identifier: MIT
// A second implementation of the row and token rules of a description, character by character and
// without regard for speed. The fuzz targets compare the product's results with it.
//
// Threads: any. Shares no code with the product.
#pragma once
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace model {

inline char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

inline std::string upper(std::string_view text)
{
    std::string result;
    for (const char c : text)
        result += upper(c);
    return result;
}

inline std::vector<std::string> rowsOf(std::string_view text)
{
    std::vector<std::string> rows(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            rows.emplace_back();
            ++i;
        } else {
            rows.back() += text[i];
        }
    }
    return rows;
}

// The rows with this key, in their order.
inline std::vector<std::string> rowsOfKey(std::string_view text, std::string_view key)
{
    std::vector<std::string> found;
    for (const auto& row : rowsOf(text)) {
        if (upper(row).starts_with(upper(key)))
            found.push_back(row);
    }
    return found;
}

// All tokens of a row's text; the first is empty if the text begins with a blank.
inline std::vector<std::string> tokensOf(std::string_view text)
{
    std::vector<std::string> tokens;
    bool quoted = false;
    bool open = !text.empty();
    if (open)
        tokens.emplace_back();
    for (const char c : text) {
        if ((c == ' ' || c == '\t') && !quoted) {
            open = false;
            continue;
        }
        if (!open)
            tokens.emplace_back();
        open = true;
        quoted = quoted != (c == '"');
        tokens.back() += c;
    }
    return tokens;
}

// The result of strtol where long has 32 bits.
inline int number(const std::string& text, int base)
{
    const long value = std::strtol(text.c_str(), nullptr, base);
    constexpr long kLeast = std::numeric_limits<int>::min();
    constexpr long kMost = std::numeric_limits<int>::max();
    return static_cast<int>(value < kLeast ? kLeast : value > kMost ? kMost : value);
}

} // namespace model
