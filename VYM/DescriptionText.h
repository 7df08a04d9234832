// SPDX-License-Identifier: MIT
// The row and token rules of a description text, on views: only CR LF ends a row; a row belongs to
// a key if it begins with it; spaces and tabs outside double quotes separate tokens. Every reader
// of such a text uses these functions.
//
// Owns:    nothing; every view returned lies inside the view that was passed in.
// Threads: any. Copies nothing, indexes nothing.
#pragma once
#include "VYM/AsciiCase.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace description {

using ascii::equalNoCase;

// A null text of the flat functions is an empty one.
inline std::string_view orEmpty(const char* text)
{
    return text != nullptr ? std::string_view(text) : std::string_view();
}

// The position of needle in text, searched from a start position, or npos.
std::size_t findNoCase(std::string_view text, std::string_view needle, std::size_t from);

// Takes the next row off the front of rest; false if rest is used up. The part after the last
// CR LF is a row, too, so every text has at least one.
class Rows {
public:
    explicit Rows(std::string_view text) : m_rest(text) { }
    bool next(std::string_view& row);

private:
    std::string_view m_rest;
    bool m_done = false;
};

// Whether the row begins with the key, ignoring case. A row may belong to several keys.
bool belongsTo(std::string_view row, std::string_view key);
// Takes the next row that begins with key; false if there are no more.
class RowsOfKey {
public:
    RowsOfKey(std::string_view text, std::string_view key) : m_rows(text), m_key(key) { }
    bool next(std::string_view& row);

private:
    Rows m_rows;
    std::string_view m_key;
};

// The index-th row that begins with key, or empty.
std::string_view findRow(std::string_view text, std::string_view key, unsigned index);
// The text after the first token and the blanks that follow it; may be empty.
std::string_view afterToken(std::string_view text);
// The position of the first blank outside double quotes, or the length.
std::size_t tokenEnd(std::string_view text);

// Walks the tokens of a value part, which keep their quotes.
class Tokens {
public:
    explicit Tokens(std::string_view valuePart) : m_rest(valuePart) { }
    bool next(std::string_view& token);

private:
    std::string_view m_rest;
};

// A token of the form name=value, split at its first "="; a bare token has no value.
struct NamedToken {
    std::string_view name;
    std::optional<std::string_view> value;
};
NamedToken splitNamed(std::string_view token);

std::string withoutQuotes(std::string_view text);
// The part before the first digit; the whole text if it has no digit or begins with one.
std::string_view beforeDigits(std::string_view text);
// The number at the start, like strtol on a 32-bit system: white space, a sign, for base 16 an
// optional "0x", then digits; limited to the 32-bit range, 0 without digits.
int leadingNumber(std::string_view text, unsigned base);

} // namespace description
