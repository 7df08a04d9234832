// SPDX-License-Identifier: MIT
#include "UI/Run/RunHistory.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kOld = "run-20260101T100000.000Z-1.log";
constexpr const char* kNew = "run-20260102T100000.000Z-1.log";

} // namespace

TEST(RunHistory, KnowsEachRunByItsLog)
{
    TempFolder folder;
    folder.write(kOld,
                 "program: p 1\nstarted: then\npackage: /a\naddress: 192.0.2.7\n"
                 "result: 1 updated\nended: later\n");
    folder.write(kNew, "program: p 2\nstarted: now\n");
    folder.write("other.txt", "result: 9");
    const auto runs = pastRuns(folder.path());
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0].number, 1U);
    EXPECT_EQ(runs[0].started, "now");
    EXPECT_FALSE(runs[0].hasEnded);
    EXPECT_EQ(runs[1].address, "192.0.2.7");
    EXPECT_EQ(runs[1].package, "/a");
    EXPECT_EQ(runs[1].result, "1 updated");
    EXPECT_TRUE(runs[1].hasEnded);
    EXPECT_EQ(logText(runs[0]), "program: p 2\nstarted: now\n");
}

TEST(RunHistory, KnowsTheVerdictOfAQueryAfterTheEnd)
{
    const struct {
        const char* why;
        const char* line;
        const char* verdict;
    } rows[] = {
        {"as it is written", "verdict: not-confirmed, 2026-11-21 11:05:00 +0100\n",
         "not-confirmed"},
        {"without a query, or of an older program", "", ""},
        {"cut off while it was written", "verdict: veri", "veri"},
        {"nothing in it", "verdict: \n", ""},
        {"bytes that move a cursor", "verdict: \x1b[2J, now\n", "\\x1b[2J"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        TempFolder folder;
        folder.write(kNew,
                     std::string("started: now\nresult: 1 updated\nended: later\n") + row.line);
        const auto runs = pastRuns(folder.path());
        ASSERT_EQ(runs.size(), 1U);
        EXPECT_EQ(runs[0].verdict, row.verdict);
        EXPECT_EQ(runs[0].result, "1 updated");
    }
}

TEST(RunHistory, CountsABadPackageAsEnded)
{
    TempFolder folder;
    folder.write(kNew, "program: p\nstarted: now\npackage: /a\nproblem: it is damaged\n");
    const auto runs = pastRuns(folder.path());
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_TRUE(runs[0].hasEnded);
    EXPECT_EQ(runs[0].result, "it is damaged");
}

TEST(RunHistory, ReadsNoMoreThanARunWrites)
{
    TempFolder folder;
    folder.write(kNew, std::string(2 * kMostHistoryBytes, 'x'));
    folder.write(kOld, std::string("started: \0\x1b[2J\n", 15));
    const auto runs = pastRuns(folder.path());
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_LE(logText(runs[0]).size(), kMostHistoryBytes);
    EXPECT_EQ(runs[1].started, "\\x00\\x1b[2J");
}

TEST(RunHistory, IsEmptyIfThereIsNoFolder)
{
    EXPECT_TRUE(pastRuns("/nowhere").empty());
    EXPECT_TRUE(pastRuns("").empty());
    EXPECT_EQ(logText({1, "/nowhere/x", {}, {}, {}, {}, {}, {}, false}), "");
}
