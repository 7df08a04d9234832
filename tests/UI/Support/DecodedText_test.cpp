// SPDX-License-Identifier: MIT
#include "UI/Support/DecodedText.h"

#include <gtest/gtest.h>

TEST(DecodedText, ResolvesEachEncodingAndEachOfThemTwice)
{
    const struct {
        const char* why;
        const char* original;
        const char* text;
    } rows[] = {
        {"plain", "anna", "anna"},
        {"letters have no case", "ANNA", "anna"},
        {"percent-encoded", "%41nn%61", "anna"},
        {"percent-encoded twice", "%2541nna", "anna"},
        {"JSON, a letter beyond ASCII", "J\\u00fcrgen", "j\xc3\xbcrgen"},
        {"JSON, twice", "DOM\\\\\\\\anna", "dom\\anna"},
        {"JSON, a solidus and a quotation mark", "\\/a\\\"", "/a\""},
        {"a byte that cannot be shown", "a\\x07", "a\x07"},
        {"a line end", "a\\nb", "a\nb"},
        {"no encoding", "100% \\z %g1 %", "100% \\z %g1 %"},
        {"an unfinished one", "a%4", "a%4"},
        {"a backslash at the end", "a\\", "a\\"},
        {"empty", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(decodedText(row.original).text, row.text);
    }
}

TEST(DecodedText, KnowsWhereEachByteBegan)
{
    const auto decoded = decodedText("a%20\\u00e4b");
    ASSERT_EQ(decoded.text,
              "a \xc3\xa4"
              "b");
    EXPECT_EQ(decoded.begins, (std::vector<std::size_t>{0, 1, 4, 4, 10, 11}));
}
