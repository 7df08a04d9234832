#include "UI/PlainText.h"

#include <gtest/gtest.h>

using namespace std::string_view_literals;

TEST(PlainText, ShowsWhatATerminalWouldObeyAndKeepsWhatItWouldShow)
{
    const struct {
        const char* why;
        std::string_view text;
        std::string_view plain;
    } rows[] = {
        {"nothing", ""sv, ""sv},
        {"plain ASCII", "MAIN 1.10"sv, "MAIN 1.10"sv},
        {"a backslash stays", "a\\b"sv, "a\\b"sv},
        {"an escape sequence", "\x1b[2Jx"sv, "\\x1b[2Jx"sv},
        {"NUL, line ends, tab", "a\0b\r\n\tc"sv, "a\\x00b\\x0d\\x0a\\x09c"sv},
        {"DEL", "a\x7f"sv, "a\\x7f"sv},
        {"a raw C1 byte", "a\x9b"sv, "a\\x9b"sv},
        {"C1 as UTF-8",
         "\xc2\x9b"
         "31m"sv,
         "\\u009b31m"sv},
        {"the first character beyond C1", "\xc2\xa0"sv, "\xc2\xa0"sv},
        {"two-byte letter", "\xc3\xa9"sv, "\xc3\xa9"sv},
        {"three-byte letter", "\xe3\x83\x97"sv, "\xe3\x83\x97"sv},
        {"four-byte sign", "\xf0\x9f\x96\xa8"sv, "\xf0\x9f\x96\xa8"sv},
        {"the highest code point", "\xf4\x8f\xbf\xbf"sv, "\xf4\x8f\xbf\xbf"sv},
        {"beyond the highest", "\xf4\x90\x80\x80"sv, "\\xf4\\x90\\x80\\x80"sv},
        {"a lone continuation byte", "\xa0"sv, "\\xa0"sv},
        {"a sequence cut short", "\xe3\x83"sv, "\\xe3\\x83"sv},
        {"a sequence broken by a letter", "\xe3\x83z"sv, "\\xe3\\x83z"sv},
        {"an overlong escape", "\xc0\x9b"sv, "\\xc0\\x9b"sv},
        {"an overlong three-byte form", "\xe0\x80\x9b"sv, "\\xe0\\x80\\x9b"sv},
        {"an overlong four-byte form", "\xf0\x80\x80\x9b"sv, "\\xf0\\x80\\x80\\x9b"sv},
        {"a surrogate", "\xed\xa0\x80"sv, "\\xed\\xa0\\x80"sv},
        {"bytes that lead nothing", "\xf5\xff"sv, "\\xf5\\xff"sv},
        {"right-to-left override",
         "a\xe2\x80\xae"
         "b"sv,
         "a\\u202eb"sv},
        {"isolates", "\xe2\x81\xa6\xe2\x81\xa9"sv, "\\u2066\\u2069"sv},
        {"direction marks", "\xe2\x80\x8e\xe2\x80\x8f\xd8\x9c"sv, "\\u200e\\u200f\\u061c"sv},
        {"line and paragraph separators", "\xe2\x80\xa8\xe2\x80\xa9"sv, "\\u2028\\u2029"sv},
        {"a byte-order mark", "\xef\xbb\xbf"sv, "\\ufeff"sv},
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
        {"never inside an escape", "1\x1b\x1b"sv, 8, "1\\x1b..."sv},
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
