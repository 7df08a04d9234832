// SPDX-License-Identifier: MIT
// The run of many processes, with shell scripts for the printers' own programs.
#include "CLI/Fleet/FleetRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string resultLine(int exitCode)
{
    return R"({"type":"result","command":"update","exit_code":)" + std::to_string(exitCode)
        + R"(,"next":"none","message":"m"})";
}

std::string echo(const std::string& line)
{
    return "echo '" + line + "';";
}

class ScriptedFleet : public FleetObserver {
public:
    explicit ScriptedFleet(std::vector<std::string> scripts) : m_scripts(std::move(scripts))
    {
        std::signal(SIGINT, SIG_DFL); // a shell cannot catch what its caller ignores
        orders.count = m_scripts.size();
        orders.limits.jobs = 2;
        orders.commandOf = [this](std::size_t index) {
            return MemberCommand{program, {"sh", "-c", m_scripts[index]}, "A=B"};
        };
        orders.withoutResult = [this](std::size_t index, const std::string& how, bool ran) {
            without.push_back(std::to_string(index) + (ran ? " ran " : " not ") + how);
            return resultLine(20);
        };
    }
    std::vector<MemberClass> run()
    {
        ends = runFleet(orders, session, *this);
        std::vector<MemberClass> classes;
        for (const auto& end : ends.members)
            classes.push_back(end.memberClass);
        return classes;
    }

    void started(std::size_t /*index*/) override { most = std::max(most, ++m_running); }
    void line(std::size_t index, const std::string& line) override
    {
        lines.push_back(std::to_string(index) + " " + line);
        if (atLine)
            atLine();
    }
    void ended(std::size_t /*index*/, const std::string& /*line*/, const MemberEnd&) override
    {
        --m_running;
    }
    void waited() override { }
    void stopping(Wake /*cause*/) override { ++stops; }

    Session session;
    FleetOrders orders;
    std::string program = "/bin/sh";
    FleetEnds ends;
    std::vector<std::string> lines;
    std::vector<std::string> without;
    std::function<void()> atLine;
    int most = 0;
    int stops = 0;

private:
    std::vector<std::string> m_scripts;
    int m_running = 0;
};

using enum MemberClass;

} // namespace

TEST(FleetRun, RunsEachPrinterToItsEndAndHandsOnItsLines)
{
    ScriptedFleet fleet({echo(R"({"type":"status","n":1})") + echo(resultLine(0)),
                         echo(resultLine(2)), echo(resultLine(16)), echo(resultLine(130))});
    EXPECT_THAT(fleet.run(), ElementsAre(updated, nothingToUpdate, failed, stopped));
    EXPECT_THAT(fleet.lines, ElementsAre(R"(0 {"type":"status","n":1})"));
    EXPECT_EQ(fleet.most, 2);
    EXPECT_EQ(fleet.ends.stop, Wake::tick);
}

TEST(FleetRun, AProcessThatCrashesTakesNoOtherWithIt)
{
    ScriptedFleet fleet({"kill -SEGV $$", echo(resultLine(0)), "exit 3", echo("{no result")});
    EXPECT_THAT(fleet.run(), ElementsAre(failed, updated, failed, failed));
    EXPECT_THAT(fleet.without,
                testing::UnorderedElementsAre("0 ran signal 11", "2 ran ", "3 ran "));
}

TEST(FleetRun, AProcessThatCannotBeStartedCountsAsFailed)
{
    ScriptedFleet fleet({"", ""});
    fleet.program = "/nowhere";
    EXPECT_THAT(fleet.run(), ElementsAre(failed, failed));
    EXPECT_THAT(fleet.without[0], HasSubstr("0 not No such file"));
}

TEST(FleetRun, StartsNothingAfterASignalAndLetsTheRunningEnd)
{
    const std::string waiting =
        R"(trap 'echo "{\"type\":\"result\",\"command\":\"update\",\"exit_code\":130}"; exit' )"
        "INT; echo up; while :; do sleep 0.01; done";
    ScriptedFleet fleet({waiting, waiting, echo(resultLine(0))});
    int up = 0;
    fleet.atLine = [&up] {
        if (++up == 2)
            kill(getpid(), SIGINT);
    };
    EXPECT_THAT(fleet.run(), ElementsAre(stopped, stopped, notStarted));
    EXPECT_EQ(fleet.ends.stop, Wake::signal);
    EXPECT_EQ(fleet.stops, 1);
}

TEST(FleetRun, StartsNothingAfterTheTimeLimitOfTheCall)
{
    ScriptedFleet fleet({"sleep 0.3;" + echo(resultLine(0)), "sleep 0.3;" + echo(resultLine(0)),
                         echo(resultLine(0))});
    fleet.session.setDeadline(0.1);
    EXPECT_THAT(fleet.run(), ElementsAre(updated, updated, notStarted));
    EXPECT_EQ(fleet.ends.stop, Wake::deadline);
}

TEST(FleetRun, SaysWhyTheRestWasNotStarted)
{
    ScriptedFleet canary({echo(resultLine(16)), echo(resultLine(0)), echo(resultLine(0))});
    canary.orders.limits.canary = 1;
    EXPECT_THAT(canary.run(), ElementsAre(failed, notStarted, notStarted));
    EXPECT_TRUE(canary.ends.isCanaryBad);
    ScriptedFleet limited({echo(resultLine(16)), echo(resultLine(16)), echo(resultLine(0))});
    limited.orders.limits = {1, 0, 2};
    EXPECT_THAT(limited.run(), ElementsAre(failed, failed, notStarted));
    EXPECT_TRUE(limited.ends.hadTooManyFailures);
}
