// SPDX-License-Identifier: MIT
#include "CLI/Session.h"
#include "tests/support/ScriptedTime.h"

#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <limits>
#include <thread>
#include <unistd.h>

namespace {

// The time between two looks is so long that no look comes.
class NoLooks : public ScriptedTime {
public:
    [[nodiscard]] unsigned long waitLimit(unsigned long /*milliseconds*/) const override
    {
        return std::numeric_limits<int>::max();
    }
};

} // namespace

TEST(Session, WakesForALookAtTheRun)
{
    const ScriptedTime time;
    Session session;
    EXPECT_EQ(session.wait(), Wake::tick);
}

TEST(Session, NoticesAndSurvivesEveryEndingSignal)
{
    const ScriptedTime time;
    Session session;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGINT}) {
        kill(getpid(), signal);
        EXPECT_EQ(session.wait(), Wake::signal);
        EXPECT_EQ(session.wait(), Wake::tick);
    }
}

TEST(Session, LeavesAnIgnoredHangUpIgnored)
{
    std::signal(SIGHUP, SIG_IGN);
    {
        const ScriptedTime time;
        Session session;
        kill(getpid(), SIGHUP);
        EXPECT_EQ(session.wait(), Wake::tick);
    }
    std::signal(SIGHUP, SIG_DFL);
}

TEST(Session, GivesTheSignalsBackAndALateOneIsForgotten)
{
    const ScriptedTime time;
    sigset_t before{};
    sigset_t after{};
    pthread_sigmask(SIG_BLOCK, nullptr, &before);
    {
        const Session session;
        kill(getpid(), SIGINT);
    }
    pthread_sigmask(SIG_BLOCK, nullptr, &after);
    EXPECT_EQ(sigismember(&before, SIGINT), sigismember(&after, SIGINT));
}

TEST(Session, ReportsTheLimitOfItsTimeOnce)
{
    ScriptedTime time;
    Session session;
    session.setDeadline(2.5);
    time.advance(2499);
    EXPECT_EQ(session.wait(), Wake::tick);
    EXPECT_FALSE(session.isOverdue());
    time.advance(1);
    EXPECT_EQ(session.wait(), Wake::deadline);
    EXPECT_TRUE(session.isOverdue());
    EXPECT_EQ(session.wait(), Wake::tick);
    EXPECT_DOUBLE_EQ(session.seconds(), 2.5);
}

TEST(Session, IsWokenByAnotherThreadsWork)
{
    const NoLooks time; // without the call it would sleep on
    Session session;
    std::thread worker([&session] { session.notify(); });
    EXPECT_EQ(session.wait(), Wake::notified);
    worker.join();
}

TEST(Session, ReadsOneLineAndLeavesTheNextAlone)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    ASSERT_EQ(write(ends[1], "yes\nrest", 8), 8);
    Session session;
    EXPECT_EQ(session.readLine(ends[0]), "yes");
    close(ends[1]);
    EXPECT_EQ(session.readLine(ends[0]), "rest");
    EXPECT_EQ(session.readLine(ends[0]), "");
    close(ends[0]);
}

TEST(Session, GivesNoLineWhenASignalOrTheLimitComesFirst)
{
    ScriptedTime time;
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    Session session;
    kill(getpid(), SIGINT);
    EXPECT_EQ(session.readLine(ends[0]), std::nullopt);
    session.setDeadline(1);
    time.advance(1000);
    EXPECT_EQ(session.readLine(ends[0]), std::nullopt);
    close(ends[0]);
    close(ends[1]);
}

TEST(Session, ChecksForASignalOrTheTimeLimitWithoutWaiting)
{
    ScriptedTime time;
    Session session;
    session.setDeadline(2.5);
    EXPECT_EQ(session.check(), Wake::tick);
    kill(getpid(), SIGINT);
    EXPECT_EQ(session.check(), Wake::signal);
    EXPECT_EQ(session.check(), Wake::tick);
    time.advance(2500);
    EXPECT_EQ(session.check(), Wake::deadline);
    EXPECT_TRUE(session.isOverdue());
    EXPECT_EQ(session.check(), Wake::tick);
}
