// The row and token rules of a description text, over views: rows end in CR LF and in nothing
// else, a row belongs to a key when it begins with it, tokens are parted by spaces and tabs
// outside double quotes. Every reader of such a text stands on these functions.
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
// The position of needle in text from a start position on, or npos.
std::size_t findNoCase(std::string_view text, std::string_view needle, std::size_t from);

// Takes the next row off the front of rest; false when there is none left. The part behind the
// last CR LF is a row too, so a text always holds at least one.
class Rows {
public:
    explicit Rows(std::string_view text) : m_rest(text) { }
    bool next(std::string_view& row);

private:
    std::string_view m_rest;
    bool m_done = false;
};

// A row belongs to every key that it begins with, whatever the case.
bool belongsTo(std::string_view row, std::string_view key);
// Takes the next row that begins with key; false when there is none left.
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
// What follows the first token and the blanks behind it; empty when nothing does.
std::string_view afterToken(std::string_view text);
// The position of the first blank outside double quotes, or the length.
std::size_t tokenEnd(std::string_view text);

// Walks the tokens of a value part, the quotes still in them.
class Tokens {
public:
    explicit Tokens(std::string_view valuePart) : m_rest(valuePart) { }
    bool next(std::string_view& token);

private:
    std::string_view m_rest;
};

// A token written name=value, split at its first "="; no value for a bare token.
struct NamedToken {
    std::string_view name;
    std::optional<std::string_view> value;
};
NamedToken splitNamed(std::string_view token);

std::string withoutQuotes(std::string_view text);
// The part before the first digit; the whole text when it has no digit or begins with one.
std::string_view beforeDigits(std::string_view text);
// The number at the start, as strtol reads it on a 32-bit system: white space, a sign, for base
// 16 an optional "0x", then digits; 0 when there are none, cut to the 32-bit range.
int leadingNumber(std::string_view text, unsigned base);

} // namespace description
