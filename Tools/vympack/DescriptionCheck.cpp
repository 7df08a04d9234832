// SPDX-License-Identifier: MIT
#include "Tools/vympack/DescriptionCheck.h"

#include "Tools/vympack/DefectKinds.h"
#include "Tools/vympack/DescriptionBytes.h"
#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/ValueCheck.h"
#include "Tools/vympack/VersionRowCheck.h"
#include "VYM/DescriptionText.h"
#include "VYM/vymParse.h"

#include <algorithm>

namespace vympack {

namespace {

constexpr std::string_view kBlanks = " \t";

// A row without a blank may have the equals sign of "KEY=value".
std::string withoutEquals(std::string_view value)
{
    const auto begin = value.find_first_not_of("= \t");
    return std::string(begin == value.npos ? std::string_view() : value.substr(begin));
}

// Reports text that is not safe to show: control characters, invalid UTF-8, characters that change
// the reading direction. A tab separates words, and a NUL has a defect of its own.
void checkPrintable(const KeyedRow& row, const RowReport& report)
{
    std::string shown(row.text);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c == '\t' || c == '\0'; }, ' ');
    const auto plain = printable(shown);
    if (plain == shown)
        return;
    const auto differs = std::mismatch(shown.begin(), shown.end(), plain.begin(), plain.end());
    const auto place = static_cast<std::size_t>(differs.first - shown.begin());
    report.at(row, row.text.substr(place), defect::kUnprintableText,
              "the text holds a sign that cannot be shown: write it in printable UTF-8");
}

// Without DEVICEIDMODELNAME, a USB printer's model is compared up to its first blank or "(".
void checkUsbModel(vymParse& parsed, const RowReport& report)
{
    std::vector<std::string> names;
    std::string model;
    if (parsed.getDeviceIDModelName(names) || !parsed.getTgmName(model)
        || model.find_first_of(" (") == model.npos)
        return;
    report.whole(defect::kNoUsbModel,
                 "there is no DEVICEIDMODELNAME row, and " + inQuotes(model)
                     + " holds a blank or \"(\": add one that lists the models as USB printers name"
                       " themselves",
                 "DEVICEIDMODELNAME " + inQuotes(model));
}

void checkKeyed(const KeyedRow& row, const RowReport& report)
{
    const std::string key(row.rule->key);
    if (!row.exact)
        report.at(row, row.text, defect::kUnknownKey,
                  inQuotes(firstWord(row.text)) + " counts as " + key
                      + " because it begins so: put a"
                      + " blank after the key, or begin a comment with #",
                  key + " " + withoutEquals(row.text.substr(key.size())));
    if (std::count(row.text.begin(), row.text.end(), '"') % 2 != 0)
        report.at(row, row.text.substr(row.text.find('"')), defect::kUnbalancedQuote,
                  "a double quote is never closed, so blanks after it part no words: close it",
                  std::string(row.text) + '"');
    checkPrintable(row, report);
}

// A row without a key is ignored; that is fine for blank rows and comments.
void checkUnkeyed(std::string_view row, std::size_t number, const RowReport& report)
{
    const auto blanks = row.find_first_not_of(kBlanks);
    if (blanks == std::string_view::npos)
        return;
    row.remove_prefix(blanks);
    auto word = firstWord(row);
    word = word.substr(0, word.find_first_of("=:"));
    const auto* rule = ruleOfRow(row);
    if (rule != nullptr && word.size() == rule->key.size()) {
        report.at(number, 1, defect::kLeadingBlank,
                  "blanks before " + std::string(rule->key)
                      + " make readers pass the row over: remove them",
                  std::string(row));
    } else if (blanks == 0 && looksLikeKey(word)) {
        const auto near = nearestKey(word);
        report.at(number, 1, defect::kUnknownKey,
                  inQuotes(word) + " is no key, the row is ignored: " + hintForWord(word),
                  near.empty() ? "# " + std::string(row) : withSpot(row, word, near));
    }
}

std::vector<KeyedRow> keyedRows(std::string_view text, const RowReport& report)
{
    std::vector<KeyedRow> keyed;
    description::Rows rows(text);
    std::string_view row;
    for (std::size_t number = 1; rows.next(row); ++number) {
        if (const auto* rule = ruleOfRow(row)) {
            const bool exact = firstWord(row).size() == rule->key.size();
            keyed.push_back({row, number, rule, exact});
            checkKeyed(keyed.back(), report);
        } else {
            checkUnkeyed(row, number, report);
        }
    }
    return keyed;
}

std::vector<KeyedRow> rowsOf(const KeyRule& rule, const std::vector<KeyedRow>& rows)
{
    std::vector<KeyedRow> own;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(own),
                 [&](const KeyedRow& row) { return row.rule == &rule; });
    return own;
}

void checkDuplicates(const std::vector<KeyedRow>& own, const RowReport& report)
{
    const KeyedRow* first = nullptr;
    for (const auto& row : own) {
        if (!row.exact)
            continue;
        if (first == nullptr)
            first = &row;
        else
            report.at(row, row.text, defect::kDuplicateKey,
                      "only the first " + std::string(row.rule->key) + " is read, that of row "
                          + std::to_string(first->number) + ": remove one",
                      "# " + std::string(row.text));
    }
}

// Readers take the first row that begins with the key, even if its word is longer.
void checkSingle(const KeyRule& rule, const std::vector<KeyedRow>& rows, const RowReport& report)
{
    const auto own = rowsOf(rule, rows);
    checkDuplicates(own, report);
    const auto answers = [&](const KeyedRow& row) {
        return description::belongsTo(row.text, rule.key);
    };
    const auto read = std::find_if(rows.begin(), rows.end(), answers);
    if (read == rows.end()) {
        if (rule.missing != nullptr)
            report.whole(*rule.missing,
                         "there is no " + std::string(rule.key) + " row: " + rule.missingMeans,
                         sampleRow(rule));
        return;
    }
    const bool isOwn = read->rule == &rule;
    const auto exact =
        std::find_if(own.begin(), own.end(), [](const auto& row) { return row.exact; });
    if (exact != own.end() && (!isOwn || !read->exact))
        report.at(*read, read->text, defect::kPrefixShadow,
                  "this row answers for " + std::string(rule.key) + " instead of row "
                      + std::to_string(exact->number) + ": move it after that row");
    if (isOwn)
        checkValue(*read, report);
}

} // namespace

void checkDescription(std::string_view text, const Place& place,
                      const std::vector<EmbeddedFile>* files, Defects& defects)
{
    const auto meant = checkBytes(text, place, defects);
    if (!meant)
        return;
    const RowReport report(place, defects);
    const auto rows = keyedRows(*meant, report);
    vymParse parsed; // the updater's reading of the text
    yesno_type versionRule = yesno_none;
    if (parsed.loadData(meant->data(), meant->size(), load_vyminfo))
        parsed.getAllowVersionDown(versionRule);
    for (const auto& rule : keyRules()) {
        if (!repeats(rule)) {
            checkSingle(rule, rows, report);
            continue;
        }
        const auto own = rowsOf(rule, rows);
        if (own.empty() && rule.missing != nullptr)
            report.whole(*rule.missing,
                         "there is no " + std::string(rule.key) + " row: " + rule.missingMeans,
                         sampleRow(rule));
        if (rule.type == ValueType::platform)
            checkPlatformRows(own, report);
        else
            checkVersionRows(own, files, versionRule, report, defects);
    }
    checkUsbModel(parsed, report);
}

} // namespace vympack
