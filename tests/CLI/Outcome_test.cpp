// SPDX-License-Identifier: MIT
#include "CLI/Outcome.h"

#include <gtest/gtest.h>

TEST(Outcome, TheExitCodeIsTenPlusTheEnginesCode)
{
    EXPECT_EQ(exitCodeOf(1), 0);
    EXPECT_EQ(exitCodeOf(-11), 2);
    for (const int code : {-1, -2, -3, -4, -5, -6, -7, -8, -9, -10, -12})
        EXPECT_EQ(exitCodeOf(code), 10 - code);
    for (const int unknown : {0, 2, -13, -99})
        EXPECT_EQ(exitCodeOf(unknown), 20) << unknown;
}

TEST(Outcome, ADecisionIsToSendToSkipToRefuseOrUndecided)
{
    const struct {
        VersionDecision decision;
        const char* name;
    } rows[] = {
        {{true, 1, VersionReason::applies}, "send"},
        {{false, -11, VersionReason::notNewer}, "skip"},
        {{false, 1, VersionReason::otherSeries}, "skip"},
        {{false, 1, VersionReason::noRule}, "skip"},
        {{false, -12, VersionReason::tooOld}, "refuse"},
        {{false, -6, VersionReason::undecided}, "undecided"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(decisionName(decisionOf(row.decision)), row.name);
}

TEST(Outcome, EveryEndBeforeAPrinterHasItsCodeAndName)
{
    Options options;
    options.command = Command::check;
    options.address = "\x1b[2J";
    const auto usage = usageOutcome(options, "m");
    EXPECT_EQ(usage.exitCode, 64);
    EXPECT_EQ(usage.name, "wrong-usage");
    EXPECT_EQ(usage.command, Command::check);
    const auto package = packageOutcome(options, "m");
    EXPECT_EQ(package.exitCode, 66);
    EXPECT_EQ(package.next, NextStep::chooseOtherPackage);
    EXPECT_EQ(package.address, "\\x1b[2J");
    const auto printer = printerOutcome(options, "no-such-printer", "m");
    EXPECT_EQ(printer.exitCode, 68);
    EXPECT_EQ(printer.name, "no-such-printer");
    EXPECT_EQ(printer.message, "m");
}
