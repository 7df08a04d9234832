// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/SessionText.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterSessionText, ALineIsTimeDirectionAndBytes)
{
    EXPECT_EQ(sessionText(Millis(12), true, Bytes{0, 0xAB}), "12 > 00ab\n");
    EXPECT_EQ(sessionText(Millis(0), false, Bytes{}), "0 < \n");
}

TEST(VymprinterSessionText, WhatIsWrittenIsReadAgain)
{
    const auto text = "# a comment\n\n" + sessionText(Millis(7), true, Bytes{1, 2})
        + sessionText(Millis(9), false, Bytes{3});
    const auto parsed = parseSession(text);
    EXPECT_EQ(parsed.wrongLine, 0U);
    ASSERT_EQ(parsed.lines.size(), 2U);
    EXPECT_EQ(parsed.lines[0].at, Millis(7));
    EXPECT_TRUE(parsed.lines[0].fromUpdater);
    EXPECT_EQ(parsed.lines[0].bytes, (Bytes{1, 2}));
    EXPECT_EQ(parsed.lines[0].number, 3U);
    EXPECT_FALSE(parsed.lines[1].fromUpdater);
}

TEST(VymprinterSessionText, TheLastLineNeedsNoEndAndAnyMayEndInCrLf)
{
    const auto parsed = parseSession("1 > 00\r\n2 < 01");
    EXPECT_EQ(parsed.wrongLine, 0U);
    EXPECT_EQ(parsed.lines.size(), 2U);
}

TEST(VymprinterSessionText, TheFirstWrongLineIsNamed)
{
    for (const char* line : {"x > 00", "-1 > 00", "1 = 00", "1 > 0", "1 > 0G", "1 > ", "1 > AB",
                             "1", "99999999999 > 00"}) {
        const auto parsed = parseSession(std::string("1 > 00\n") + line + "\n1 = wrong, too");
        EXPECT_EQ(parsed.wrongLine, 2U) << line;
        EXPECT_TRUE(parsed.lines.empty()) << line;
    }
}

} // namespace
