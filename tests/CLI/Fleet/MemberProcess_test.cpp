// SPDX-License-Identifier: MIT
#include "CLI/Fleet/MemberProcess.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>

using testing::ElementsAre;

namespace {

// Starts a shell script; returns why that failed.
std::string startScript(MemberProcess& process, const std::string& script)
{
    return process.start("/bin/sh", {"sh", "-c", script}, "WHO=member");
}

std::vector<std::string> allLines(MemberProcess& process)
{
    std::vector<std::string> all;
    while (!process.isAtEnd()) {
        pollfd entry{process.descriptor(), POLLIN, 0};
        poll(&entry, 1, 10000);
        for (auto& line : process.lines())
            all.push_back(std::move(line));
    }
    return all;
}

} // namespace

TEST(MemberProcess, ReturnsWholeLinesAndNothingOfALastPart)
{
    MemberProcess process;
    ASSERT_EQ(startScript(process, "printf 'one\\ntwo\\n\\npart'"), "");
    EXPECT_THAT(allLines(process), ElementsAre("one", "two", ""));
    EXPECT_EQ(process.finish(), "");
}

TEST(MemberProcess, ReturnsALineThatIsLongerThanAPipe)
{
    MemberProcess process;
    ASSERT_EQ(startScript(process, "head -c 200000 /dev/zero | tr '\\0' x; echo"), "");
    const auto lines = allLines(process);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines.front().size(), 200000U);
}

TEST(MemberProcess, HasAGroupOfItsOwnAnEmptyInputAndTheVariable)
{
    MemberProcess process;
    ASSERT_EQ(startScript(process,
                          "cat; echo $WHO; "
                          "[ $(cut -d ' ' -f 5 /proc/$$/stat) -eq $$ ] && echo own"),
              "");
    EXPECT_THAT(allLines(process), ElementsAre("member", "own"));
}

TEST(MemberProcess, SaysWhichSignalEndedIt)
{
    MemberProcess process;
    ASSERT_EQ(startScript(process, "kill -SEGV $$"), "");
    allLines(process);
    EXPECT_EQ(process.finish(), "signal 11");
}

TEST(MemberProcess, IsStoppedAsByAPerson)
{
    std::signal(SIGINT, SIG_DFL); // a shell cannot catch what its caller ignores
    MemberProcess process;
    ASSERT_EQ(startScript(process,
                          "trap 'echo asked; exit' INT; echo up; while :; do sleep 0.01; "
                          "done"),
              "");
    std::vector<std::string> first;
    while (first.empty()) {
        pollfd entry{process.descriptor(), POLLIN, 0};
        poll(&entry, 1, 10000);
        first = process.lines();
    }
    process.stop();
    EXPECT_THAT(allLines(process), ElementsAre("asked"));
    EXPECT_EQ(process.finish(), "");
}

TEST(MemberProcess, SaysWhyAProgramCannotBeStarted)
{
    MemberProcess process;
    EXPECT_EQ(process.start("/nowhere", {"nowhere"}, "A=B"), "No such file or directory");
    EXPECT_EQ(process.finish(), "");
}
