// SPDX-License-Identifier: MIT
#include "Platform/SleepInhibitor.h"

#include <gtest/gtest.h>

TEST(NoSleepInhibitor, HoldsNothingAndSaysWhy)
{
    const SleepInhibitor inhibitor("test", "an update");
    EXPECT_FALSE(inhibitor.holds());
    EXPECT_EQ(inhibitor.note(), "no sleep inhibitor: built without libsystemd");
}
