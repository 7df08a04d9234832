// SPDX-License-Identifier: MIT
#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/VersionForm.h"

#include <gtest/gtest.h>
#include <string>

using namespace vympack;

TEST(VympackVersionForm, EveryFormIsRecognisedByItsFirstPoint)
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
        {"point at 2, one digit after", "01.1", false, false, 0},
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

TEST(VympackPrintableText, IsNeverCut)
{
    const std::string text(5000, 'x');
    EXPECT_EQ(printable(text + '\x1b'), text + "\\x1b");
}
