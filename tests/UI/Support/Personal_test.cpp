// SPDX-License-Identifier: MIT
#include "UI/Support/Personal.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sched.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

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

// As a user is in a container that has only a number for its user.
TEST(Personal, OfAUserWithoutAnAccountIsWhatTheEnvironmentSays)
{
    constexpr unsigned kNumber = 4242;
    constexpr int kImpossible = 2; // only root, or a user of one's own, may have another number
    const auto asUserWithoutAccount = [] {
        const auto map = std::to_string(kNumber) + " " + std::to_string(getuid()) + " 1";
        if (setuid(kNumber) != 0 && unshare(CLONE_NEWUSER) == 0)
            std::ofstream("/proc/self/uid_map") << map;
        if (getuid() != kNumber || getpwuid(kNumber) != nullptr)
            return kImpossible;
        setenv("USER", "anna", 1);
        return personalOfSystem().users == std::vector<std::string>{"anna"} ? 0 : 1;
    };
    unsetenv("LOGNAME");
    unsetenv("SUDO_USER");
    const auto ended = [](int status) {
        return WIFEXITED(status)
            && (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == kImpossible);
    };
    EXPECT_EXIT(std::_Exit(asUserWithoutAccount()), ended, "");
}
