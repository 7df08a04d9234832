// SPDX-License-Identifier: MIT
#include "CLI/SafeReport.h"

#include <gtest/gtest.h>
#include <new>

namespace {

struct PoorReport : Report {
    void waiting(const std::string& /*stage*/, double /*seconds*/) override { fail(); }
    void status(const StatusView& /*view*/) override { fail(); }
    void warn(const std::string& /*text*/) override { fail(); }
    void quiet(double /*silence*/, double /*seconds*/) override { fail(); }
    void stopping(StopCause /*cause*/, double /*seconds*/) override { fail(); }
    void finish(const Outcome& /*outcome*/) override { fail(); }
    void finishBriefly(std::string_view line) override { last = line; }
    [[noreturn]] void fail()
    {
        ++calls;
        throw std::bad_alloc();
    }
    int calls = 0;
    std::string last;
};

} // namespace

TEST(SafeReport, LeavesOutWhatCannotBeShown)
{
    PoorReport poor;
    SafeReport report(poor);
    report.waiting("stage", 1);
    report.status({});
    report.warn("text");
    report.quiet(1, 1);
    report.stopping(StopCause::user, 1);
    EXPECT_EQ(poor.calls, 5);
}

TEST(SafeReport, SaysThatTheResultCouldNotBeReported)
{
    PoorReport poor;
    SafeReport report(poor);
    EXPECT_THROW(report.finish({}), std::bad_alloc);
    report.finishBriefly("last words");
    EXPECT_EQ(poor.last, "last words");
}
