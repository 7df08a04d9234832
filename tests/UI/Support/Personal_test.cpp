// SPDX-License-Identifier: MIT
#include "UI/Support/Personal.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::Each;
using testing::Not;

TEST(Personal, KnowsTheUserTheHomeAndTheComputer)
{
    setenv("USER", "anna", 1);
    setenv("HOME", "/home/anna", 1);
    setenv("SUDO_USER", "", 1);
    const auto personal = personalOfSystem();
    unsetenv("SUDO_USER");
    EXPECT_THAT(personal.users, Contains("anna"));
    EXPECT_THAT(personal.homes, Contains("/home/anna"));
    EXPECT_THAT(personal.users, Each(Not("")));
    EXPECT_NE(personal.computer, "");
}
