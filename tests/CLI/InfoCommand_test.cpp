// SPDX-License-Identifier: MIT
#include "CLI/Commands.h"

#include <gtest/gtest.h>

TEST(InfoCommand, ShowsThePackageAndNothingElse)
{
    PackageFacts package{};
    package.model = "Model 100";
    const auto outcome = runInfo(package);
    EXPECT_EQ(outcome.command, Command::info);
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.name, "package-info");
    EXPECT_EQ(outcome.verdict, Verdict::shown);
    ASSERT_TRUE(outcome.package.has_value());
    EXPECT_EQ(outcome.package->model, "Model 100");
    EXPECT_TRUE(outcome.firmware.empty());
}
