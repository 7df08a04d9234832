// SPDX-License-Identifier: MIT
#include "Tools/vympack/DescriptionKeys.h"

#include "Tools/vympack/DefectKinds.h"
#include "VYM/DescriptionText.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <vector>

namespace vympack {

namespace {

constexpr int kMostSeconds = std::numeric_limits<int>::max() / 1000; // as milliseconds in 32 bits
constexpr std::size_t kMostSlips = 2; // with more it is another word
constexpr std::size_t kLettersPerSlip = 3; // a short word with two slips is also another word

constexpr std::array<KeyRule, 19> kRules{{
    {"TGMNAME", "\"Model 100\"", ValueType::text, 0, 0, &defect::kMissingKey,
     "without the model that the package is for, no update gets past its start"},
    {"MODELNAME", "\"Model 100\"", ValueType::list, 0, 0, &defect::kMissingOptionalKey,
     "the window names no printer model"},
    {"DRIVERNAME", "\"Model 100\"", ValueType::list, 0, 0, &defect::kMissingOptionalKey,
     "no installed printer is recognised by its driver"},
    {"PORT", "USB NET", ValueType::list},
    {"PORTNO", "48350", ValueType::number, 1, 65535},
    {"USEDXRL", "NO", ValueType::yesNo},
    {"NEEDENTEROPERATION", "NO", ValueType::yesNo},
    {"NEEDEXITOPERATION", "NO", ValueType::yesNo},
    {"ENTERTIME", "5", ValueType::number, 0, kMostSeconds},
    {"EXITTIME", "5", ValueType::number, 0, kMostSeconds},
    {"UPDATETIME", "30", ValueType::number, 0, kMostSeconds, &defect::kNoUpdateTime,
     "with a time of 0 every update fails"},
    {"ALLOWVERSIONDOWN", "BOTH", ValueType::yesNo},
    {"SPECIALCMDPATTERN", "NO", ValueType::yesNo},
    {"DEVICEIDMODELNAME", "\"Model 100\"", ValueType::list},
    {"PRODUCT", "\"Model 100 series\"", ValueType::text},
    {"USEDRIVERONLY", "YES", ValueType::yesNo},
    {"DEFAULTIPADDRESS", "192.168.0.10", ValueType::address},
    {"PLATFORMVERSION", "MACOS=0", ValueType::platform},
    {"VERSION", "MAIN=AB010203 main.bin MAIN.BIN", ValueType::version, 0, 0, &defect::kNoVersionRow,
     "the package updates nothing; add a row for each firmware"},
}};

// The keys of a printer's TargetInfo.txt.
constexpr std::string_view kPrinterKeys[] = {"MAXPACKET", "SUPPORT_COMMAND"};

// The number of letters to insert, delete, change or swap with their neighbour.
std::size_t slipsBetween(std::string_view left, std::string_view right)
{
    const auto width = right.size() + 1;
    std::vector<std::size_t> before(width);
    std::vector<std::size_t> last(width);
    std::vector<std::size_t> now(width);
    std::iota(last.begin(), last.end(), std::size_t{0});
    const auto same = [&](std::size_t i, std::size_t j) {
        return description::equalNoCase(left.substr(i, 1), right.substr(j, 1));
    };
    for (std::size_t i = 0; i < left.size(); ++i) {
        now[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            now[j + 1] = std::min({last[j + 1] + 1, now[j] + 1, last[j] + (same(i, j) ? 0 : 1)});
            if (i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j))
                now[j + 1] = std::min(now[j + 1], before[j - 1] + 1);
        }
        before.swap(last);
        last.swap(now);
    }
    return last.back();
}

std::size_t lengthGap(std::string_view left, std::string_view right)
{
    return std::max(left.size(), right.size()) - std::min(left.size(), right.size());
}

} // namespace

std::span<const KeyRule> keyRules()
{
    return kRules;
}

std::string sampleRow(const KeyRule& rule)
{
    return std::string(rule.key) + " " + rule.sample;
}

bool repeats(const KeyRule& rule)
{
    return rule.type == ValueType::version || rule.type == ValueType::platform;
}

const KeyRule* ruleOfRow(std::string_view row)
{
    const KeyRule* longest = nullptr;
    for (const auto& rule : keyRules()) {
        if (description::belongsTo(row, rule.key)
            && (longest == nullptr || rule.key.size() > longest->key.size()))
            longest = &rule;
    }
    return longest;
}

std::string_view firstWord(std::string_view row)
{
    return row.substr(0, description::tokenEnd(row));
}

bool looksLikeKey(std::string_view word)
{
    const auto letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const auto allowed = [&](char c) { return letter(c) || (c >= '0' && c <= '9') || c == '_'; };
    return !word.empty() && letter(word.front()) && std::all_of(word.begin(), word.end(), allowed);
}

std::string_view nearestKey(std::string_view word)
{
    std::vector<std::string_view> keys;
    for (const auto& rule : keyRules())
        keys.push_back(rule.key);
    return nearest(word, keys);
}

std::string hintForWord(std::string_view word)
{
    for (const auto key : kPrinterKeys) {
        if (description::belongsTo(word, key))
            return "it belongs to the text that a printer sends; leave it out";
    }
    if (const auto key = nearestKey(word); !key.empty())
        return "did you mean " + std::string(key) + "?";
    return "if it is a comment, begin it with #";
}

std::string_view nearest(std::string_view word, std::span<const std::string_view> candidates)
{
    std::string_view best;
    auto fewest = std::min(kMostSlips, word.size() / kLettersPerSlip) + 1;
    for (const auto candidate : candidates) {
        if (lengthGap(word, candidate) >= fewest)
            continue;
        if (const auto slips = slipsBetween(word, candidate); slips < fewest) {
            fewest = slips;
            best = candidate;
        }
    }
    return best;
}

} // namespace vympack
