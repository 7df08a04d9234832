// SPDX-License-Identifier: MIT
#include "tests/Tools/vymprinter/program.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterProgram, ListensSaysSoAndEndsCleanlyOnASignal)
{
    for (const int number : {SIGTERM, SIGINT}) {
        Program program({"--listen", "127.0.0.1:0"});
        const auto endpoint = program.endpoint();
        EXPECT_TRUE(Updater(endpoint).connected());
        program.signal(number);
        EXPECT_EQ(program.exitCode(), 0);
    }
}

TEST(VymprinterProgram, ReportsWhatHappens)
{
    Program program({"--listen", "127.0.0.1:0", "--sessions", "1"});
    {
        Updater updater(program.endpoint());
        updater.ask(requests::enter());
        updater.ask(requests::piece(1, 3, {1}));
    }
    const auto told = program.rest();
    EXPECT_THAT(told, HasSubstr("connection 1 is in download mode\n"));
    EXPECT_THAT(told, HasSubstr("connection 1 was refused: a firmware does not begin at 0\n"));
}

} // namespace
