// SPDX-License-Identifier: MIT
#include "UI/Text/PlainText.h"

#include <gtest/gtest.h>

using namespace std::string_view_literals;

TEST(PlainText, EscapesWhatATerminalWouldObeyAndKeepsTheRest)
{
    const struct {
        const char* why;
        std::string_view text;
        std::string_view plain;
    } rows[] = {
        {"nothing", ""sv, ""sv},
        {"plain ASCII", "MAIN 1.10"sv, "MAIN 1.10"sv},
        {"a backslash stays", R"(a\b)", R"(a\b)"},
        {"an escape sequence", "\x1b[2Jx"sv, R"(\x1b[2Jx)"},
        {"NUL, line ends, tab", "a\0b\r\n\tc"sv, R"(a\x00b\x0d\x0a\x09c)"},
        {"DEL", "a\x7f"sv, R"(a\x7f)"},
        {"a raw C1 byte", "a\x9b"sv, R"(a\x9b)"},
        {"C1 as UTF-8",
         "\xc2\x9b"
         "31m"sv,
         R"(\u009b31m)"},
        {"the first character beyond C1", "\xc2\xa0"sv, "\xc2\xa0"sv},
        {"two-byte letter", "\xc3\xa9"sv, "\xc3\xa9"sv},
        {"three-byte letter", "\xe3\x83\x97"sv, "\xe3\x83\x97"sv},
        {"four-byte sign", "\xf0\x9f\x96\xa8"sv, "\xf0\x9f\x96\xa8"sv},
        {"the highest code point", "\xf4\x8f\xbf\xbf"sv, "\xf4\x8f\xbf\xbf"sv},
        {"beyond the highest", "\xf4\x90\x80\x80"sv, R"(\xf4\x90\x80\x80)"},
        {"a lone continuation byte", "\xa0"sv, R"(\xa0)"},
        {"a sequence cut short", "\xe3\x83"sv, R"(\xe3\x83)"},
        {"a sequence broken by a letter", "\xe3\x83z"sv, R"(\xe3\x83z)"},
        {"an overlong escape", "\xc0\x9b"sv, R"(\xc0\x9b)"},
        {"an overlong three-byte form", "\xe0\x80\x9b"sv, R"(\xe0\x80\x9b)"},
        {"an overlong four-byte form", "\xf0\x80\x80\x9b"sv, R"(\xf0\x80\x80\x9b)"},
        {"a surrogate", "\xed\xa0\x80"sv, R"(\xed\xa0\x80)"},
        {"bytes that lead nothing", "\xf5\xff"sv, R"(\xf5\xff)"},
        {"right-to-left override",
         "a\xe2\x80\xae"
         "b"sv,
         R"(a\u202eb)"},
        {"isolates", "\xe2\x81\xa6\xe2\x81\xa9"sv, R"(\u2066\u2069)"},
        {"direction marks", "\xe2\x80\x8e\xe2\x80\x8f\xd8\x9c"sv, R"(\u200e\u200f\u061c)"},
        {"line and paragraph separators", "\xe2\x80\xa8\xe2\x80\xa9"sv, R"(\u2028\u2029)"},
        {"a byte-order mark", "\xef\xbb\xbf"sv, R"(\ufeff)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(plainText(row.text), row.plain);
    }
}

TEST(PlainText, CutsBetweenCharactersAndSaysSo)
{
    const struct {
        const char* why;
        std::string_view text;
        std::size_t limit;
        std::string_view plain;
    } rows[] = {
        {"just fits", "12345"sv, 5, "12345"sv},
        {"one too long", "123456"sv, 5, "12..."sv},
        {"never inside an escape", "1\x1b\x1b"sv, 8, R"(1\x1b...)"},
        {"never inside a letter", "\xc3\xa9\xc3\xa9\xc3\xa9"sv, 5, "\xc3\xa9..."sv},
        {"no room but for the mark", "1234"sv, 3, "..."sv},
        {"not even that", "1234"sv, 2, ".."sv},
        {"no room at all", "1"sv, 0, ""sv},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(plainText(row.text, row.limit), row.plain);
    }
}

TEST(PlainText, BoundsEveryTextByItself)
{
    EXPECT_EQ(plainText(std::string(100000, 'x')).size(), kDisplayLimit);
    EXPECT_LE(plainText(std::string(100000, '\x1b')).size(), kDisplayLimit);
}
