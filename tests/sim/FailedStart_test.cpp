// SPDX-License-Identifier: MIT
// A worker whose memory runs out before its run has begun.
#include "tests/sim/Run.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint64_t kAllocations = 20; // more than a start needs

TEST(FailedStart, LeavesNoThreadBehind)
{
    unsigned failed = 0;
    for (std::uint64_t n = 1; n <= kAllocations; ++n) {
        sim::Scenario scenario;
        scenario.failingAllocation = n;
        const auto report = sim::run(scenario, false);
        for (const auto& sentence : report.untruths)
            ADD_FAILURE() << n << ": " << sentence;
        failed += report.started ? 0 : 1;
    }
    EXPECT_GT(failed, 0U) << "every start succeeded";
}

} // namespace
