// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetSummary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

FleetSummary summaryOf(std::initializer_list<MemberClass> classes)
{
    FleetSummary summary;
    for (const auto each : classes)
        summary.add(each, memberClassName(each), "Why.");
    return summary;
}

} // namespace

TEST(FleetSummary, EndsWellIfEveryPrinterIsUpdatedOrInNeedOfNothing)
{
    using enum MemberClass;
    const struct {
        std::initializer_list<MemberClass> classes;
        int exitCode;
    } rows[] = {
        {{}, 0},
        {{updated, nothingToUpdate, skipped, sameDevice, updateAvailable}, 0},
        {{updated, failed}, 1},
        {{skipped, leftAlone}, 1},
        {{updated, stopped}, 130},
        {{failed, stopped}, 130},
        {{failed, notStarted}, 1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(exitCodeOf(summaryOf(row.classes)), row.exitCode) << row.exitCode;
    auto stoppedEarly = summaryOf({notStarted});
    stoppedEarly.wasStopped = true;
    EXPECT_EQ(exitCodeOf(stoppedEarly), 130);
}

TEST(FleetSummary, CountsInWords)
{
    using enum MemberClass;
    EXPECT_EQ(countsText(summaryOf({updated, updated, failed})), "2 updated, 1 failed.");
    auto summary = summaryOf({failed, notStarted});
    summary.isCanaryBad = true;
    EXPECT_THAT(countsText(summary), HasSubstr("not all of the first printers ended well"));
    summary.isCanaryBad = false;
    summary.hadTooManyFailures = true;
    EXPECT_THAT(countsText(summary), HasSubstr("because too many failed"));
}

TEST(FleetSummary, NamesEachPrinterThatNeedsAttentionAndWhy)
{
    using enum MemberClass;
    auto summary = summaryOf({updated, failed, leftAlone});
    summary.add(notStarted, "c\x1b[2J");
    EXPECT_EQ(attentionText(summary),
              "failed: failed: Why.\nnot_started: c\\x1b[2J\nleft_alone: left_alone: Why.\n");
}
