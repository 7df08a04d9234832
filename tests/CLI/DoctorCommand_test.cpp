// SPDX-License-Identifier: MIT
#include "tests/CLI/CommandRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

TEST(DoctorCommand, EndsWithTheNumberOfProblems)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"doctor"}), 0);
    EXPECT_THAT(run.out, HasSubstr("Ready: Nothing that an update needs is missing."));
    EXPECT_EQ(run.runOnPackage({"doctor", "--printer", "attic"}), 1);
    EXPECT_THAT(run.out + run.err, HasSubstr("Obstacles: 1 thing would hinder an update."));
}

TEST(DoctorCommand, RefusesAPackageWithoutTheGivenKeysSignature)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"doctor", "--json", "--key", "no key"}), 1);
    EXPECT_THAT(run.out, HasSubstr(R"("check":"signature","status":"problem")"));
}
