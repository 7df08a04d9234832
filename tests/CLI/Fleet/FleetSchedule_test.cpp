// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetSchedule.h"

#include <gtest/gtest.h>

namespace {

// Starts as many as may start now; returns how many those are.
std::size_t start(FleetSchedule& schedule)
{
    std::size_t count = 0;
    while (schedule.take())
        ++count;
    return count;
}

} // namespace

TEST(FleetSchedule, RunsSoManyAtATimeUntilAllHaveEnded)
{
    FleetSchedule schedule(5, {2, 0, 0});
    EXPECT_EQ(start(schedule), 2U);
    schedule.ended(true);
    EXPECT_EQ(schedule.take(), 2U);
    EXPECT_EQ(schedule.take(), std::nullopt);
    schedule.ended(false);
    schedule.ended(true);
    EXPECT_EQ(start(schedule), 2U);
    EXPECT_FALSE(schedule.isOver());
    schedule.ended(true);
    schedule.ended(true);
    EXPECT_TRUE(schedule.isOver());
    EXPECT_EQ(schedule.started(), 5U);
}

TEST(FleetSchedule, IsOverAtOnceWithoutPrinters)
{
    EXPECT_TRUE(FleetSchedule(0, {8, 3, 1}).isOver());
}

TEST(FleetSchedule, StartsTheRestOnlyAfterAllOfTheFirstHaveEndedWell)
{
    FleetSchedule schedule(10, {8, 3, 0});
    EXPECT_EQ(start(schedule), 3U);
    schedule.ended(true);
    schedule.ended(true);
    EXPECT_EQ(start(schedule), 0U);
    EXPECT_FALSE(schedule.isOver());
    schedule.ended(true);
    EXPECT_EQ(start(schedule), 7U);
    schedule.ended(false); // no longer one of the first
    EXPECT_FALSE(schedule.isCanaryBad());
}

TEST(FleetSchedule, StartsNothingMoreAfterOneOfTheFirstDidNotEndWell)
{
    FleetSchedule schedule(10, {1, 3, 0});
    EXPECT_EQ(start(schedule), 1U);
    schedule.ended(false);
    EXPECT_EQ(start(schedule), 1U); // the first few are all run
    schedule.ended(true);
    EXPECT_EQ(start(schedule), 1U);
    schedule.ended(true);
    EXPECT_EQ(start(schedule), 0U);
    EXPECT_TRUE(schedule.isOver());
    EXPECT_TRUE(schedule.isCanaryBad());
}

TEST(FleetSchedule, MoreFirstPrintersThanThereAreIsNoMatter)
{
    FleetSchedule schedule(2, {8, 3, 0});
    EXPECT_EQ(start(schedule), 2U);
    schedule.ended(true);
    schedule.ended(true);
    EXPECT_TRUE(schedule.isOver());
}

TEST(FleetSchedule, StartsNothingAfterSoManyFailuresButLetsTheRestEnd)
{
    FleetSchedule schedule(10, {3, 0, 2});
    EXPECT_EQ(start(schedule), 3U);
    schedule.ended(false);
    EXPECT_EQ(start(schedule), 1U);
    schedule.ended(false);
    EXPECT_EQ(start(schedule), 0U);
    EXPECT_TRUE(schedule.hasTooManyFailures());
    EXPECT_FALSE(schedule.isOver());
    schedule.ended(true);
    schedule.ended(true);
    EXPECT_TRUE(schedule.isOver());
    EXPECT_EQ(schedule.started(), 4U);
}

TEST(FleetSchedule, StartsNothingAfterAStop)
{
    FleetSchedule schedule(10, {3, 0, 0});
    EXPECT_EQ(start(schedule), 3U);
    schedule.stop();
    schedule.ended(true);
    EXPECT_EQ(start(schedule), 0U);
    EXPECT_FALSE(schedule.isOver());
    schedule.ended(true);
    schedule.ended(true);
    EXPECT_TRUE(schedule.isOver());
}
