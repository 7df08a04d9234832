#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/VersionForm.h"

#include <gtest/gtest.h>
#include <string>

using namespace vympack;

TEST(VympackVersionForm, EveryFormIsToldByItsFirstPoint)
{
    const struct {
        const char* why;
        std::string text;
        bool known, pointed;
        std::size_t compared;
    } rows[] = {
        {"four characters and digits", "AB010203", true, false, 8},
        {"four characters alone", "0110", true, false, 4},
        {"three characters", "AB0", false, false, 0},
        {"empty", "", false, false, 0},
        {"a letter among the digits", "AB01020X", false, false, 0},
        {"more digits than a number holds", "AB010123456789", false, false, 0},
        {"point at 2", "01.10", true, true, 5},
        {"point at 2, one digit behind", "01.1", false, false, 0},
        {"point at 2, letters before", "AB.10", false, false, 0},
        {"point at 2, a tail", "01.10b", true, true, 5},
        {"point at 6", "AB0101.10", true, true, 9},
        {"point at 6, no digits before", "AB01X1.10", false, false, 0},
        {"point at 8", "ABCDEFGH.01.02.03", true, true, 17},
        {"point at 8, two points only", "ABCDEFGH.01.02", false, false, 0},
        {"point at 8, third point at once", "ABCDEFGH...03", false, false, 0},
        {"point at 12", "AB0120240131.", true, true, 13},
        {"point at 12, a letter", "AB012024O131.", false, false, 0},
        {"point at 0", ".10", false, false, 0},
        {"point at 4", "0101.10", false, false, 0},
        {"point at 20", std::string(20, '1') + ".1", false, false, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto form = versionForm(row.text);
        ASSERT_EQ(form.has_value(), row.known);
        if (form) {
            EXPECT_EQ(form->pointed, row.pointed);
            EXPECT_EQ(form->compared, row.compared);
        }
    }
}

TEST(VympackPrintableText, WhatCannotBeShownIsEscaped)
{
    const struct {
        const char* why;
        std::string text, shown;
    } rows[] = {
        {"plain", "main.bin", "main.bin"},
        {"other scripts", "\xC3\xA4\xE6\xBC\xA2\xF0\x9F\x96\xA8",
         "\xC3\xA4\xE6\xBC\xA2\xF0\x9F\x96\xA8"},
        {"a terminal sequence", "a\x1B[2Jb", "a\\x1B[2Jb"},
        {"row ends", "a\r\nb", "a\\x0D\\x0Ab"},
        {"NUL and DEL", std::string("\0\x7F", 2), "\\x00\\x7F"},
        {"an 8-bit control character", "\xC2\x9B", "\\xC2\\x9B"},
        {"a stray continuation", "\x80z", "\\x80z"},
        {"a cut character", "\xE6\xBC", "\\xE6\\xBC"},
        {"an overlong form", "\xC0\xAF", "\\xC0\\xAF"},
        {"an overlong form of three", "\xE0\x80\xAF", "\\xE0\\x80\\xAF"},
        {"a surrogate", "\xED\xA0\x80", "\\xED\\xA0\\x80"},
        {"beyond the last character", "\xF4\x90\x80\x80", "\\xF4\\x90\\x80\\x80"},
        {"a turn of the writing direction",
         "a\xE2\x80\xAE"
         "b",
         "a\\xE2\\x80\\xAE"
         "b"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(printable(row.text), row.shown);
        EXPECT_EQ(printable(row.shown), row.shown);
    }
}
