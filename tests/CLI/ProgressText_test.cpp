// SPDX-License-Identifier: MIT
#include "CLI/ProgressText.h"
#include "CLI/Terminal.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

ProgressParts sending()
{
    return {"Sending firmware 1 of 2 (MAIN)", 50.0, 1024 * 1024, 2 * 1024 * 1024, 0, 35};
}

} // namespace

TEST(ProgressText, ShowsStageBarPercentBytesAndTime)
{
    EXPECT_EQ(progressLine(sending(), 90),
              "Sending firmware 1 of 2 (MAIN) [#############-------------]  50 %"
              "  1.0 of 2.0 MiB  0:35");
}

TEST(ProgressText, CountsSmallFirmwareInKibibytes)
{
    auto parts = sending();
    parts.bytesDone = 512;
    parts.bytesTotal = 71683;
    EXPECT_NE(progressLine(parts, 90).find("  0.5 of 70.0 KiB  "), std::string::npos);
    parts.bytesTotal = 1024 * 1024;
    EXPECT_NE(progressLine(parts, 90).find("  0.0 of 1.0 MiB  "), std::string::npos);
}

TEST(ProgressText, LeavesOutTheBarWithoutRoom)
{
    EXPECT_EQ(progressLine(sending(), 62),
              "Sending firmware 1 of 2 (MAIN)  50 %  1.0 of 2.0 MiB  0:35");
}

TEST(ProgressText, KeepsClockAndPercentOnANarrowTerminal)
{
    EXPECT_EQ(progressLine(sending(), 40), "Sending firmware 1 of ...  50 %  0:35");
    EXPECT_EQ(progressLine(sending(), 20), "Se...  50 %  0:35");
    const ProgressParts waiting{"Connecting to the printer", {}, 0, 0, 12.4, 12.4};
    EXPECT_EQ(progressLine(waiting, 40), "Connecting to the printer, 12 s  0:12");
    EXPECT_EQ(progressLine(waiting, 34), "Connecting to th..., 12 s  0:12");
}

TEST(ProgressText, NeverNeedsMoreThanTheColumns)
{
    for (std::size_t columns = 20; columns < 200; ++columns)
        EXPECT_LE(columnsNeeded(progressLine(sending(), columns)), columns - kFreeColumns);
}

TEST(ProgressText, SaysThatItWaitsIfTheProgressIsUnknown)
{
    ProgressParts parts{"Connecting to the printer", {}, 0, 0, 12.4, 12.4};
    const char* waiting = "Connecting to the printer: waiting for the printer, 12 s  0:12";
    EXPECT_EQ(progressLine(parts, 90), waiting);
    parts.percent = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(progressLine(parts, 90), waiting);
    parts.percent = std::numeric_limits<double>::infinity();
    EXPECT_EQ(progressLine(parts, 90), waiting);
    const ProgressParts asking{"Asking the print server", {}, 0, 0, 2.0, 3.0, true};
    EXPECT_EQ(progressLine(asking, 90), "Asking the print server, 2 s  0:03");
}

TEST(ProgressText, SaysThatItWaitsWhenNothingChanges)
{
    auto parts = sending();
    parts.silence = 7;
    EXPECT_NE(progressLine(parts, 100).find("waiting for the printer, 7 s"), std::string::npos);
}

TEST(ProgressText, NeverShowsMoreThanAll)
{
    auto parts = sending();
    parts.percent = 200;
    EXPECT_NE(progressLine(parts, 90).find("#] 100 %"), std::string::npos);
}

TEST(ProgressText, WritesTimesAndSizesForPeople)
{
    EXPECT_EQ(clockText(0), "0:00");
    EXPECT_EQ(clockText(61.9), "1:01");
    EXPECT_EQ(clockText(3723), "1:02:03");
    EXPECT_EQ(sizeText(700), "700 bytes");
    EXPECT_EQ(sizeText(1536), "1.5 KiB");
    EXPECT_EQ(sizeText(3UL * 1024 * 1024), "3.0 MiB");
}

TEST(Terminal, BreaksSentencesBetweenWords)
{
    EXPECT_EQ(wrapped("one two three", 7), "one two\nthree");
    EXPECT_EQ(wrapped("one two three", 6), "one\ntwo\nthree");
    EXPECT_EQ(wrapped("a longword b", 3), "a\nlongword\nb");
    EXPECT_EQ(wrapped("one two", std::string::npos), "one two");
    EXPECT_EQ(wrapped("", 5), "");
}

TEST(Terminal, KnowsHowWideLettersAre)
{
    EXPECT_EQ(columnsNeeded("abc"), 3U);
    EXPECT_EQ(columnsNeeded("\xc3\xa9t\xc3\xa9"), 3U); // accented
    EXPECT_EQ(columnsNeeded("\xe5\x8d\xb0\xe5\x88\xb7"), 4U); // wide
    EXPECT_EQ(columnsNeeded("e\xcc\x81"), 1U); // a combining mark
    EXPECT_EQ(columnsNeeded("\xff"), 1U);
}

TEST(Terminal, FitsATextIntoColumnsWithoutCuttingALetter)
{
    EXPECT_EQ(fitColumns("abc", 3), "abc");
    EXPECT_EQ(fitColumns("abcd", 3), "abc");
    EXPECT_EQ(fitColumns("a\xe3\x83\x97"
                         "b",
                         3),
              "a\xe3\x83\x97");
    EXPECT_EQ(fitColumns("a\xe3\x83\x97"
                         "b",
                         2),
              "a");
}
