// SPDX-License-Identifier: MIT
#include "tests/Tools/vympack/program.h"

#include <gmock/gmock.h>

using namespace vympack_test;
using testing::HasSubstr;

TEST(VympackCommandLine, EveryCommandHasItsHelp)
{
    for (const std::string command :
         {"init", "make", "check", "simulate", "diff", "rehearse", "list", "extract"}) {
        EXPECT_THAT(run("--help").output, HasSubstr("\n  " + command + " "));
        EXPECT_EQ(run(command + " --help").code, 0) << command;
        EXPECT_EQ(run(command + " --none").code, 64) << command;
    }
}

TEST(VympackCommandLine, TheHelpSaysLimitsAndExitCodes)
{
    const auto help = run("--help").output;
    for (const char* text :
         {"1000 VERSION rows", "31 bytes", "4 GiB", "73 a result", "130\ninterr"})
        EXPECT_THAT(help, HasSubstr(text));
}
