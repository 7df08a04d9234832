// SPDX-License-Identifier: MIT
// The keys of a package description: the type of each key's value, the meaning of its absence, and
// the key of a row.
//
// Threads: any; the table is constant.
#pragma once
#include "Tools/vympack/Defect.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vympack {

enum class ValueType { text, list, number, yesNo, address, platform, version };

struct KeyRule {
    std::string_view key;
    const char* sample; // a valid value
    ValueType type;
    int least = 0; // for numbers
    int most = 0;
    const DefectKind* missing = nullptr; // null if the key may be missing
    const char* missingMeans = "";
};

std::span<const KeyRule> keyRules();
// A whole row with the key and its sample.
std::string sampleRow(const KeyRule& rule);
// Whether the key may have many rows (VERSION and PLATFORMVERSION); readers take one row of others.
bool repeats(const KeyRule& rule);
// The longest key that the row begins with, or null.
const KeyRule* ruleOfRow(std::string_view row);
// The first word of a row: up to the first blank outside quotes.
std::string_view firstWord(std::string_view row);
// Whether the word has a key's form: letters, digits and underscores, beginning with a letter.
bool looksLikeKey(std::string_view word);
// The key that differs from the word by only a slip or two; empty if there is none.
std::string_view nearestKey(std::string_view word);
// A remark about a word that is no key: the probable key, or the file where it belongs.
std::string hintForWord(std::string_view word);
// The candidate that differs from the word by only a slip or two; empty if there is none.
std::string_view nearest(std::string_view word, std::span<const std::string_view> candidates);

// One row that belongs to a key; rows are numbered from 1.
struct KeyedRow {
    std::string_view text;
    std::size_t number;
    const KeyRule* rule;
    bool exact; // its first word is exactly the key
};

} // namespace vympack
