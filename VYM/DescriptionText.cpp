// SPDX-License-Identifier: MIT
#include "VYM/DescriptionText.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace description {

namespace {

constexpr std::string_view kRowEnd = "\r\n";
constexpr auto kNone = std::string_view::npos;

using ascii::sameNoCase;
using ascii::upper;

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isSpace(char c)
{
    return isBlank(c) || (c >= '\n' && c <= '\r');
}

std::string_view skipBlanks(std::string_view text)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isBlank(text[i]))
            return text.substr(i);
    }
    return {};
}

// The value of a digit in the base, or base itself for any other character.
unsigned digitValue(char c, unsigned base)
{
    unsigned value = base;
    if (c >= '0' && c <= '9')
        value = static_cast<unsigned>(c - '0');
    else if (upper(c) >= 'A' && upper(c) <= 'Z')
        value = static_cast<unsigned>(upper(c) - 'A') + 10;
    return std::min(value, base);
}

} // namespace

std::size_t findNoCase(std::string_view text, std::string_view needle, std::size_t from)
{
    if (from > text.size())
        return kNone;
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(start, text.end(), needle.begin(), needle.end(), sameNoCase);
    if (found == text.end() && !needle.empty())
        return kNone;
    return static_cast<std::size_t>(found - text.begin());
}

bool Rows::next(std::string_view& row)
{
    if (m_done)
        return false;
    const auto end = m_rest.find(kRowEnd);
    row = m_rest.substr(0, end);
    m_done = end == kNone;
    if (!m_done)
        m_rest.remove_prefix(end + kRowEnd.size());
    return true;
}

bool belongsTo(std::string_view row, std::string_view key)
{
    return ascii::beginsNoCase(row, key);
}

bool RowsOfKey::next(std::string_view& row)
{
    while (m_rows.next(row)) {
        if (belongsTo(row, m_key))
            return true;
    }
    return false;
}

std::string_view findRow(std::string_view text, std::string_view key, unsigned index)
{
    RowsOfKey rows(text, key);
    std::string_view row;
    for (unsigned counted = 0; rows.next(row); ++counted) {
        if (counted == index)
            return row;
    }
    return {};
}

std::string_view afterToken(std::string_view text)
{
    return skipBlanks(text.substr(tokenEnd(text)));
}

std::size_t tokenEnd(std::string_view text)
{
    bool outsideQuotes = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"')
            outsideQuotes = !outsideQuotes;
        else if (isBlank(text[i]) && outsideQuotes)
            return i;
    }
    return text.size();
}

bool Tokens::next(std::string_view& token)
{
    if (m_rest.empty())
        return false;
    const auto end = tokenEnd(m_rest);
    token = m_rest.substr(0, end);
    m_rest = skipBlanks(m_rest.substr(end));
    return true;
}

NamedToken splitNamed(std::string_view token)
{
    const auto sign = token.find('=');
    if (sign == kNone)
        return {token, std::nullopt};
    return {token.substr(0, sign), token.substr(sign + 1)};
}

std::string withoutQuotes(std::string_view text)
{
    std::string plain(text);
    std::erase(plain, '"');
    return plain;
}

std::string_view beforeDigits(std::string_view text)
{
    const auto digit = text.find_first_of("0123456789");
    return digit == kNone || digit == 0 ? text : text.substr(0, digit);
}

int leadingNumber(std::string_view text, unsigned base)
{
    constexpr std::int64_t kBeyond = std::int64_t{1} << 32; // past every 32-bit value
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    const bool prefixed = base == 16 && text.size() > 2 && text[0] == '0' && upper(text[1]) == 'X'
        && digitValue(text[2], base) < base;
    if (prefixed)
        text.remove_prefix(2);
    std::int64_t value = 0;
    for (const char c : text) {
        const auto digit = digitValue(c, base);
        if (digit == base)
            break;
        value = std::min(value * base + digit, kBeyond);
    }
    return static_cast<int>(std::clamp<std::int64_t>(negative ? -value : value,
                                                     std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

} // namespace description
