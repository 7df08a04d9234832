// SPDX-License-Identifier: MIT
#include "Tools/vympack/Interrupt.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>

using namespace vympack;

TEST(VympackInterrupt, SignalsThatEndAProgramRaiseAFlagOnly)
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU}) {
        const auto raised = [number] {
            catchInterrupts();
            const bool before = interrupted();
            std::raise(number);
            std::exit(!before && interrupted() ? 0 : 1);
        };
        EXPECT_EXIT(raised(), testing::ExitedWithCode(0), "") << number;
    }
}

TEST(VympackInterrupt, AnIgnoredSignalStaysIgnored)
{
    const auto raised = [] {
        std::signal(SIGHUP, SIG_IGN); // as nohup does
        catchInterrupts();
        std::raise(SIGHUP);
        std::exit(interrupted() ? 1 : 0);
    };
    EXPECT_EXIT(raised(), testing::ExitedWithCode(0), "");
}

TEST(VympackInterrupt, LimitsAndClosedPipesAreNoEnd)
{
    const auto raised = [] {
        catchInterrupts();
        std::raise(SIGXFSZ);
        std::raise(SIGPIPE);
        std::exit(interrupted() ? 1 : 0);
    };
    EXPECT_EXIT(raised(), testing::ExitedWithCode(0), "");
}
