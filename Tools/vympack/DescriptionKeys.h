// The keys of a package description: what kind of value each has and what its absence means, and
// which key a row belongs to.
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
    const char* sample; // a value that does
    ValueType type;
    int least = 0; // for numbers
    int most = 0;
    const DefectKind* missing = nullptr; // null when the key may be missing
    const char* missingMeans = "";
};

std::span<const KeyRule> keyRules();
// A whole row with the key and its sample.
std::string sampleRow(const KeyRule& rule);
// VERSION and PLATFORMVERSION stand in many rows; of every other key one row is read.
bool repeats(const KeyRule& rule);
// The longest key that the row begins with; null when there is none.
const KeyRule* ruleOfRow(std::string_view row);
// The first word of a row: all up to the first blank outside quotes.
std::string_view firstWord(std::string_view row);
// True for a word written like a key: letters, digits and underscores, a letter first.
bool looksLikeKey(std::string_view word);
// The key that the word is only a slip or two away from; empty when there is none.
std::string_view nearestKey(std::string_view word);
// A remark about a word that is no key: what was probably meant, or where it belongs.
std::string hintForWord(std::string_view word);
// The candidate that is only a slip or two away from the word; empty when there is none.
std::string_view nearest(std::string_view word, std::span<const std::string_view> candidates);

// One row that belongs to a key; rows are numbered from 1.
struct KeyedRow {
    std::string_view text;
    std::size_t number;
    const KeyRule* rule;
    bool exact; // its first word is the key and nothing but the key
};

} // namespace vympack
