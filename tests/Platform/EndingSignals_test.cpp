#include "Platform/EndingSignals.h"

#include <array>
#include <gtest/gtest.h>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace {

bool isReadable(const EndingSignals& signals)
{
    pollfd entry{signals.descriptor(), POLLIN, 0};
    return poll(&entry, 1, 0) == 1;
}

} // namespace

TEST(EndingSignals, WaitUntilTheyAreTaken)
{
    const EndingSignals signals;
    EXPECT_FALSE(isReadable(signals));
    EXPECT_EQ(signals.take(), 0);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP}) {
        kill(getpid(), signal);
        EXPECT_TRUE(isReadable(signals));
        EXPECT_EQ(signals.take(), signal);
        EXPECT_FALSE(isReadable(signals));
    }
}

TEST(EndingSignals, DoNotEndTheProcessThroughAnotherThread)
{
    const EndingSignals signals;
    std::thread([] { kill(getpid(), SIGTERM); }).join();
    EXPECT_EQ(signals.take(), SIGTERM);
}

TEST(EndingSignals, AreGivenBackAndALateOneIsForgotten)
{
    sigset_t before{};
    pthread_sigmask(SIG_BLOCK, nullptr, &before);
    {
        const EndingSignals signals;
        kill(getpid(), SIGTERM);
    }
    sigset_t after{};
    pthread_sigmask(SIG_BLOCK, nullptr, &after);
    EXPECT_EQ(sigismember(&before, SIGTERM), sigismember(&after, SIGTERM));
}

TEST(EndingSignals, MakeAClosedPipeAnErrorOfOneWrite)
{
    const EndingSignals signals;
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    EXPECT_EQ(write(ends[1], "x", 1), -1);
    close(ends[1]);
}
