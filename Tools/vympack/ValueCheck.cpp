// SPDX-License-Identifier: MIT
#include "Tools/vympack/ValueCheck.h"

#include "Tools/vympack/DefectKinds.h"
#include "VYM/DescriptionText.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cassert>
#include <limits>

namespace vympack {

namespace {

constexpr std::string_view kPlatform = "MACOS"; // this platform's name in descriptions
constexpr std::size_t kMostHexDigits = 8; // of a 32-bit bound

std::string_view firstToken(std::string_view value)
{
    return value.substr(0, description::tokenEnd(value));
}

void checkNothingFollows(const KeyedRow& row, std::string_view token, const RowReport& report)
{
    const auto rest = description::afterToken(token);
    if (rest.empty())
        return;
    const bool isText = row.rule->type == ValueType::text;
    std::string whole(token);
    std::erase(whole, '"');
    report.at(row, rest, defect::kUnreadText,
              "only the first word of this value is read: put a value with blanks in double"
              " quotes, or remove "
                  + inQuotes(rest),
              isText ? std::string(row.rule->key) + " " + inQuotes(whole)
                     : withoutSpot(row.text, rest));
}

void checkText(const KeyedRow& row, std::string_view value, const RowReport& report)
{
    if (description::withoutQuotes(firstToken(value)).empty())
        report.at(row, value, defect::kEmptyValue,
                  std::string(row.rule->key) + " has no value: write one after the key",
                  sampleRow(*row.rule));
    checkNothingFollows(row, value, report);
}

void checkList(const KeyedRow& row, std::string_view value, const RowReport& report)
{
    if (value.empty())
        report.at(row, value, defect::kEmptyList,
                  std::string(row.rule->key) + " lists nothing: write a value or remove the row",
                  sampleRow(*row.rule));
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

void checkNumber(const KeyedRow& row, std::string_view value, const RowReport& report)
{
    const auto& rule = *row.rule;
    const auto token = firstToken(value);
    const auto number = description::leadingNumber(token, 10);
    const bool plain = !token.empty() && std::all_of(token.begin(), token.end(), isDigit);
    if (!plain || number < rule.least || number > rule.most)
        report.at(row, token, defect::kBadNumber,
                  std::string(rule.key) + " is " + inQuotes(token) + ": write a number from "
                      + std::to_string(rule.least) + " to " + std::to_string(rule.most)
                      + " without quotes",
                  sampleRow(rule));
    else if (rule.missing != nullptr && number == 0)
        report.at(row, token, *rule.missing,
                  std::string(rule.key) + " is 0, and " + rule.missingMeans, sampleRow(rule));
    checkNothingFollows(row, value, report);
}

// The words count anywhere after the key, even inside longer words.
void checkYesNo(const KeyedRow& row, std::string_view value, const RowReport& report)
{
    const auto answer = row.text.substr(row.rule->key.size());
    for (const auto* word : {"YES", "NO", "BOTH"}) {
        if (description::findNoCase(answer, word, 0) != std::string_view::npos)
            return;
    }
    report.at(row, value, defect::kBadYesNo,
              std::string(row.rule->key) + " answers " + inQuotes(value)
                  + ": write YES, NO or BOTH",
              sampleRow(*row.rule));
}

void checkAddress(const KeyedRow& row, std::string_view value, const RowReport& report)
{
    in_addr parsed{};
    const auto address = description::withoutQuotes(firstToken(value));
    // inet_pton would stop at a NUL.
    if (address.find('\0') != std::string::npos
        || ::inet_pton(AF_INET, address.c_str(), &parsed) != 1)
        report.at(row, value, defect::kBadDefaultAddress,
                  inQuotes(address)
                      + " is no IPv4 address: write four numbers such as 192.168.0.10",
                  sampleRow(*row.rule));
    checkNothingFollows(row, value, report);
}

// Whether the text is a bound of the system version: hexadecimal digits that fit 31 bits, with a
// sign only if allowed.
bool isBound(std::string_view text, bool signAllowed)
{
    if (signAllowed && text.starts_with('-'))
        text.remove_prefix(1);
    if (text.starts_with("0x") || text.starts_with("0X"))
        text.remove_prefix(2);
    const auto hex = [](char c) {
        return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    };
    return !text.empty() && text.size() <= kMostHexDigits
        && std::all_of(text.begin(), text.end(), hex)
        && description::leadingNumber(text, 16) < std::numeric_limits<int>::max();
}

void checkBounds(const KeyedRow& row, std::string_view value, std::string_view lowest,
                 const RowReport& report)
{
    constexpr auto kForm = ": write hexadecimal numbers such as 1058";
    if (!isBound(lowest, false))
        report.at(row, lowest, defect::kBadPlatformVersion,
                  "the lowest system version is " + inQuotes(lowest) + kForm, sampleRow(*row.rule));
    const auto rest = description::afterToken(value);
    const auto highest = firstToken(rest);
    if (highest.empty())
        return;
    const auto most = description::leadingNumber(highest, 16);
    if (!isBound(highest, true))
        report.at(row, highest, defect::kBadPlatformVersion,
                  "the highest system version is " + inQuotes(highest) + kForm,
                  withoutSpot(row.text, highest));
    else if (most >= 0 && most < description::leadingNumber(lowest, 16))
        report.at(row, highest, defect::kBadPlatformVersion,
                  "the highest system version " + inQuotes(highest) + " is below the lowest, "
                      + inQuotes(lowest) + ": no system would do; swap or remove it",
                  withoutSpot(row.text, highest));
    checkNothingFollows(row, rest, report);
}

} // namespace

void checkValue(const KeyedRow& row, const RowReport& report)
{
    assert(!repeats(*row.rule));
    const auto value = description::afterToken(row.text);
    switch (row.rule->type) {
    case ValueType::text:
        return checkText(row, value, report);
    case ValueType::list:
        return checkList(row, value, report);
    case ValueType::number:
        return checkNumber(row, value, report);
    case ValueType::yesNo:
        return checkYesNo(row, value, report);
    case ValueType::address:
        return checkAddress(row, value, report);
    case ValueType::platform:
    case ValueType::version:
        return; // checked as a group
    }
}

void checkPlatformRows(std::span<const KeyedRow> rows, const RowReport& report)
{
    bool found = false;
    for (const auto& row : rows) {
        const auto value = description::afterToken(row.text);
        const auto named = description::splitNamed(firstToken(value));
        if (!named.value || named.name.empty()) {
            report.at(row, value, defect::kBadPlatformVersion,
                      "the row names no platform and is passed over: write MACOS=, the lowest"
                      " system version and, if there is one, the highest",
                      sampleRow(*row.rule));
        } else if (description::equalNoCase(named.name, kPlatform)) {
            if (found)
                report.at(row, row.text, defect::kDuplicateKey,
                          "an earlier row holds for this platform already: remove one",
                          "# " + std::string(row.text));
            else
                checkBounds(row, value, *named.value, report);
            found = true;
        }
    }
    if (!found)
        report.whole(defect::kNoPlatformVersion,
                     "no PLATFORMVERSION row for MACOS: every system would count as unsupported;"
                     " add one, MACOS=0 to allow all",
                     "PLATFORMVERSION MACOS=0");
}

} // namespace vympack
