#include "Tools/vympack/DescriptionCheck.h"

#include "Tools/vympack/DefectKinds.h"
#include "Tools/vympack/DescriptionBytes.h"
#include "Tools/vympack/ValueCheck.h"
#include "Tools/vympack/VersionRowCheck.h"
#include "VYM/DescriptionText.h"

#include <algorithm>

namespace vympack {

namespace {

constexpr std::string_view kBlanks = " \t";

void checkKeyed(const KeyedRow& row, const RowReport& report)
{
    const std::string key(row.rule->key);
    if (!row.exact)
        report.at(row, row.text, defect::kUnknownKey,
                  quoted(firstWord(row.text)) + " counts as " + key + " because it begins so: put a"
                      + " blank behind the key, or begin a comment with #");
    if (std::count(row.text.begin(), row.text.end(), '"') % 2 != 0)
        report.at(row, row.text.substr(row.text.find('"')), defect::kUnbalancedQuote,
                  "a double quote is never closed, so blanks behind it part no words: close it");
}

// A row of no key is ignored; that is fine for blank rows and comments.
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
                      + " make readers pass the row over: remove them");
    } else if (blanks == 0 && looksLikeKey(word)) {
        report.at(number, 1, defect::kUnknownKey,
                  quoted(word) + " is no key, the row is ignored: " + hintForWord(word));
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
                          + std::to_string(first->number) + ": remove one");
    }
}

// Readers take the first row that begins with the key, be it a row of a longer word.
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
                         "there is no " + std::string(rule.key) + " row: " + rule.missingMeans);
        return;
    }
    const bool isOwn = read->rule == &rule;
    const auto exact =
        std::find_if(own.begin(), own.end(), [](const auto& row) { return row.exact; });
    if (exact != own.end() && (!isOwn || !read->exact))
        report.at(*read, read->text, defect::kPrefixShadow,
                  "this row answers for " + std::string(rule.key) + " instead of row "
                      + std::to_string(exact->number) + ": move it behind that row");
    if (isOwn)
        checkValue(*read, report);
}

} // namespace

void checkDescription(std::string_view text, const Place& place,
                      const std::vector<EmbeddedFile>& files, Defects& defects)
{
    const auto meant = checkBytes(text, place, defects);
    if (!meant)
        return;
    const RowReport report(place, defects);
    const auto rows = keyedRows(*meant, report);
    for (const auto& rule : keyRules()) {
        if (!repeats(rule)) {
            checkSingle(rule, rows, report);
            continue;
        }
        const auto own = rowsOf(rule, rows);
        if (own.empty() && rule.missing != nullptr)
            report.whole(*rule.missing,
                         "there is no " + std::string(rule.key) + " row: " + rule.missingMeans);
        if (rule.type == ValueType::platform)
            checkPlatformRows(own, report);
        else
            checkVersionRows(own, files, report, defects);
    }
}

} // namespace vympack
