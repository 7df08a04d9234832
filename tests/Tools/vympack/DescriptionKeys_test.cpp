// SPDX-License-Identifier: MIT
#include "Tools/vympack/DescriptionKeys.h"
#include "tests/Tools/vympack/description_rows.h"

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;

TEST(VympackDescriptionKeys, MisspeltKeysAndTokensGetTheRightSuggestion)
{
    const struct {
        const char *word, *suggestion;
    } rows[] = {
        {"TGMNAM", "mean TGMNAME?"},         {"TMGNAME", "mean TGMNAME?"},
        {"VERISON", "mean VERSION?"},        {"modelnames2", "counts as MODELNAME"},
        {"UPDATE_TIME", "mean UPDATETIME?"}, {"NEEDEXITOPARETION", "mean NEEDEXITOPERATION?"},
        {"COLOUR", "begin it with #"},       {"SUPPORT_COMMAND", "that a printer sends"},
    };
    for (const auto& row : rows) {
        const auto defects = check(goodDescription() + row.word + " X\r\n");
        ASSERT_THAT(defects.kept(), testing::SizeIs(1)) << row.word;
        EXPECT_THAT(defects.kept()[0].message, HasSubstr(row.suggestion));
    }
}

TEST(VympackDescriptionKeys, ARowBelongsToItsLongestKey)
{
    const struct {
        const char *row, *key;
    } rows[] = {{"PORT USB", "PORT"},
                {"portno 1", "PORTNO"},
                {"PORTNUMBER", "PORT"},
                {"VERSIONS", "VERSION"},
                {"", ""},
                {" PORT", ""},
                {"# PORT", ""},
                {"MODELNAME=x", "MODELNAME"}};
    for (const auto& row : rows) {
        const auto* rule = ruleOfRow(row.row);
        EXPECT_EQ(rule == nullptr ? "" : rule->key, row.key) << row.row;
    }
}

TEST(VympackDescriptionKeys, EverySampleRowPassesTheChecks)
{
    for (const auto& rule : keyRules()) {
        SCOPED_TRACE(rule.key);
        std::string text;
        for (const auto& other : keyRules()) {
            if (&other != &rule && (other.missing != nullptr || other.type == ValueType::platform))
                text += sampleRow(other) + "\r\n";
        }
        const auto defects = check(text + sampleRow(rule) + "\r\n");
        EXPECT_EQ(defects.errors(), 0U);
    }
}
