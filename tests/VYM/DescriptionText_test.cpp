// SPDX-License-Identifier: MIT
#include "VYM/DescriptionText.h"

#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr auto kNone = std::string_view::npos;

std::vector<std::string> allRows(std::string_view text)
{
    std::vector<std::string> all;
    description::Rows rows(text);
    std::string_view row;
    while (rows.next(row))
        all.emplace_back(row);
    return all;
}

std::vector<std::string> allTokens(std::string_view text)
{
    std::vector<std::string> all;
    description::Tokens tokens(text);
    std::string_view token;
    while (tokens.next(token))
        all.emplace_back(token);
    return all;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(Rows, EndOnlyInCarriageReturnAndLineFeed)
{
    const struct {
        const char* why;
        std::string text;
        Texts rows;
    } rows[] = {
        {"nothing is one empty row", "", {""}},
        {"no row end", "A 1", {"A 1"}},
        {"the part after the last row end is a row too", "A\r\nB", {"A", "B"}},
        {"also when it is empty", "A\r\n", {"A", ""}},
        {"bare line feeds part nothing", "A\nB\nC", {"A\nB\nC"}},
        {"bare carriage returns neither", "A\rB", {"A\rB"}},
        {"the two the other way round", "A\n\rB", {"A\n\rB"}},
        {"a carriage return more", "A\r\r\nB", {"A\r", "B"}},
        {"row ends in a row", "\r\n\r\n", {"", "", ""}},
        {"half a row end at the end", "A\r", {"A\r"}},
        {"a zero byte is a byte", std::string("A\0B\r\nC", 6), {std::string("A\0B", 3), "C"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(allRows(row.text), row.rows) << row.why;
}

TEST(Row, BelongsToTheKeyThatItBeginsWith)
{
    constexpr std::string_view kText =
        "# PORT in a comment\r\nPORTNO\t8000\r\n PORT blank\r\nport USB\r\nPort NET";
    const struct {
        const char* why;
        const char* key;
        unsigned index;
        const char* row;
    } rows[] = {
        {"a longer key begins so as well", "PORT", 0, "PORTNO\t8000"},
        {"letter case does not matter, a blank in front does", "PORT", 1, "port USB"},
        {"the last row counts without a row end", "PORT", 2, "Port NET"},
        {"one more than there are", "PORT", 3, ""},
        {"the largest index", "PORT", UINT_MAX, ""},
        {"the key's own case does not matter", "portno", 0, "PORTNO\t8000"},
        {"a key longer than every row", "PORTNO\t8000 and more than that, much more", 0, ""},
        {"absent", "MODEL", 0, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(description::findRow(kText, row.key, row.index), row.row) << row.why;
    EXPECT_EQ(description::findRow("", "PORT", 0), "");
}

TEST(TextAfterAToken, BeginsAfterTheFirstBlanksOutsideQuotes)
{
    const struct {
        const char* why;
        const char* text;
        const char* rest;
    } rows[] = {
        {"one space", "KEY value more", "value more"},
        {"many blanks", "KEY \t \t value", "value"},
        {"a tab", "KEY\t8000", "8000"},
        {"no blank", "KEY", ""},
        {"only blanks after", "KEY  \t", ""},
        {"nothing", "", ""},
        {"a quote opens the rest and is kept", "KEY \"A B\" C", "\"A B\" C"},
        {"blanks between quotes part nothing", "\"A B\" C", "C"},
        {"a quote inside a token", "x=\"A B\" C", "C"},
        {"a quote that never closes", "\"A B C", ""},
        {"blanks at the front", "  A B", "A B"},
        {"a line feed is no blank", "A\nB C", "C"},
        {"an empty token in quotes", "\"\" B", "B"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(description::afterToken(row.text), row.rest) << row.why;
}

TEST(TokenEnd, IsTheFirstBlankOutsideQuotes)
{
    const struct {
        const char* text;
        std::size_t end;
    } rows[] = {
        {"", 0},        {"A", 1},  {"A B", 1},          {"A\tB", 1},   {"\"A B\" C", 5},
        {"\"A B C", 6}, {" A", 0}, {"x=\"A B\"y z", 8}, {"A\nB C", 3}, {"\"\" ", 2},
    };
    for (const auto& row : rows)
        EXPECT_EQ(description::tokenEnd(row.text), row.end) << row.text;
}

TEST(Tokens, KeepTheirQuotes)
{
    EXPECT_EQ(allTokens(""), Texts{});
    EXPECT_EQ(allTokens("one"), Texts{"one"});
    EXPECT_EQ(allTokens("\"Model 100\" \"Model 200\""), (Texts{"\"Model 100\"", "\"Model 200\""}));
    EXPECT_EQ(allTokens("a \t b  "), (Texts{"a", "b"}));
    EXPECT_EQ(allTokens("\"\" b"), (Texts{"\"\"", "b"}));
    EXPECT_EQ(allTokens("a \"never closed b c"), (Texts{"a", "\"never closed b c"}));
}

TEST(NamedToken, IsSplitAtItsFirstEqualsSign)
{
    const auto both = description::splitNamed("MAIN=1=2");
    EXPECT_EQ(both.name, "MAIN");
    EXPECT_EQ(both.value, "1=2");
    const auto empty = description::splitNamed("=");
    EXPECT_EQ(empty.name, "");
    EXPECT_EQ(empty.value, "");
    const auto bare = description::splitNamed("main.bin");
    EXPECT_EQ(bare.name, "main.bin");
    EXPECT_FALSE(bare.value.has_value());
}

TEST(CaselessSearch, FindsTheFirstMatchFromAStartPosition)
{
    const struct {
        const char* text;
        const char* needle;
        std::size_t from, found;
    } rows[] = {
        {"one yes YES", "Yes", 0, 4}, {"one yes YES", "yes", 5, 8},
        {"one", "yes", 0, kNone},     {"yes", "yes", 1, kNone},
        {"yes", "yes", 4, kNone},     {"yes", "", 3, 3},
        {"yes", "", 4, kNone},        {"", "", 0, 0},
        {"", "a", 0, kNone},          {"ye", "yes", 0, kNone},
        {"x[", "{", 0, kNone},        {"\xE9", "\xC9", 0, kNone},
    };
    for (const auto& row : rows)
        EXPECT_EQ(description::findNoCase(row.text, row.needle, row.from), row.found)
            << row.text << " " << row.needle << " " << row.from;
}

TEST(CaselessComparison, KnowsTheLettersOfAsciiOnly)
{
    EXPECT_TRUE(description::equalNoCase("MacOS", "MACOS"));
    EXPECT_TRUE(description::equalNoCase("", ""));
    EXPECT_FALSE(description::equalNoCase("MACOS", "MACOSX"));
    EXPECT_FALSE(description::equalNoCase("@", "`"));
    EXPECT_FALSE(description::equalNoCase("[", "{"));
}

TEST(Quotes, AreRemovedAnywhere)
{
    EXPECT_EQ(description::withoutQuotes("\"A B\""), "A B");
    EXPECT_EQ(description::withoutQuotes("x=\"A\"\"\"B"), "x=AB");
    EXPECT_EQ(description::withoutQuotes("\"\"\""), "");
    EXPECT_EQ(description::withoutQuotes("'A'"), "'A'");
}

TEST(TextBeforeDigits, IsCutOnlyAfterOtherText)
{
    EXPECT_EQ(description::beforeDigits("ABC123"), "ABC");
    EXPECT_EQ(description::beforeDigits("123"), "123");
    EXPECT_EQ(description::beforeDigits("ABC"), "ABC");
    EXPECT_EQ(description::beforeDigits("A1B2"), "A");
    EXPECT_EQ(description::beforeDigits("1A"), "1A");
    EXPECT_EQ(description::beforeDigits(""), "");
}

TEST(LeadingNumber, EndsBeforeTheFirstByteThatIsNoDigit)
{
    const struct {
        const char* why;
        const char* text;
        unsigned base;
        int number;
    } rows[] = {
        {"digits", "8000", 10, 8000},
        {"digits and more", "12abc 7", 10, 12},
        {"a minus", "-5", 10, -5},
        {"a plus", "+5", 10, 5},
        {"two signs", "+-5", 10, 0},
        {"white space in front", " \t\n\v\f\r7", 10, 7},
        {"a quote in front", "\"7\"", 10, 0},
        {"no digit", "abc", 10, 0},
        {"nothing", "", 10, 0},
        {"a sign alone", "-", 10, 0},
        {"leading zeros are not octal", "010", 10, 10},
        {"hexadecimal digits", "1fG", 16, 0x1F},
        {"a hexadecimal prefix", "0x1F", 16, 0x1F},
        {"a prefix in upper case", "0X1f", 16, 0x1F},
        {"a prefix without a digit", "0x", 16, 0},
        {"a prefix and no hexadecimal digit", "0xg", 16, 0},
        {"a prefix in base 10", "0x1F", 10, 0},
        {"a sign and a prefix", "-0x101", 16, -0x101},
        {"a negative in base 16", "-0101", 16, -257},
        {"the greatest", "2147483647", 10, INT_MAX},
        {"one beyond it", "2147483648", 10, INT_MAX},
        {"the least", "-2147483648", 10, INT_MIN},
        {"one beyond that", "-2147483649", 10, INT_MIN},
        {"2 to the 32nd", "4294967296", 10, INT_MAX},
        {"far beyond", "99999999999999999999999999", 10, INT_MAX},
        {"far beyond the other way", "-99999999999999999999999999", 10, INT_MIN},
        {"all ones in base 16", "FFFFFFFF", 16, INT_MAX},
    };
    for (const auto& row : rows)
        EXPECT_EQ(description::leadingNumber(row.text, row.base), row.number) << row.why;
}

TEST(EveryReader, StaysInsideItsPartOfAText)
{
    const std::string whole = "VERSION MAIN=\"01 10\"\tmain.bin -0x10\r\n\" \"\r\n=\r\r\n\tX\0 1";
    for (std::size_t from = 0; from <= whole.size(); ++from) {
        for (std::size_t length = 0; from + length <= whole.size(); ++length) {
            const std::string text(whole, from, length); // its own block, for the sanitizers
            EXPECT_LE(description::tokenEnd(text), text.size());
            EXPECT_LE(description::afterToken(text).size(), text.size());
            EXPECT_LE(description::beforeDigits(text).size(), text.size());
            EXPECT_GE(description::leadingNumber(text, 16), -0x10);
            EXPECT_LE(allTokens(text).size(), text.size());
            EXPECT_LE(allRows(text).size(), text.size() + 1);
        }
    }
}
