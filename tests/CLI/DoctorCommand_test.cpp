#include "CLI/Doctor.h"

#include <gtest/gtest.h>

TEST(DoctorCommand, HasAStableNameForEachStatus)
{
    EXPECT_STREQ(findingStatusName(doctor::ok("a", "b").status), "ok");
    EXPECT_STREQ(findingStatusName(doctor::warning("a", "b").status), "warning");
    EXPECT_STREQ(findingStatusName(doctor::problem("a", "b").status), "problem");
    EXPECT_STREQ(findingStatusName(doctor::skipped("a", "b").status), "skipped");
}
