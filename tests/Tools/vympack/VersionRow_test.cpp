// SPDX-License-Identifier: MIT
#include "Tools/vympack/VersionRow.h"

#include <gtest/gtest.h>

using namespace vympack;

TEST(VympackVersionRow, PartsAreWhatTheUpdaterReads)
{
    const auto row = parseVersionRow("VERSION MAIN=AB010203 dir\\main.bin ONE TWO compatible=AB01"
                                     " HEADER=1 DISPVER=x OTHER=y");
    EXPECT_TRUE(namesFirmware(row));
    EXPECT_EQ(row.first.name, "MAIN");
    EXPECT_EQ(row.first.value, "AB010203");
    EXPECT_EQ(imageName(row), "main.bin");
    EXPECT_EQ(row.subFiles.back(), "TWO");
    EXPECT_EQ(row.compatible, "AB01");
    ASSERT_EQ(row.others.size(), 1U);
    EXPECT_EQ(row.others[0], "OTHER=y");
}

TEST(VympackVersionRow, NameAndVersionCountOnlyInFront)
{
    for (const char* row : {"VERSION main.bin MAIN=AB01", "VERSION HEADER=1 MAIN=AB01", "VERSION"})
        EXPECT_FALSE(namesFirmware(parseVersionRow(row))) << row;
}

TEST(VympackVersionRow, ASlipInATokensNameIsSeen)
{
    EXPECT_EQ(nearestTokenName("COMPATIBEL"), "COMPATIBLE");
    EXPECT_EQ(nearestTokenName("COLOUR"), "");
    EXPECT_TRUE(isTokenName("dispfirm"));
}
