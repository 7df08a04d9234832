// SPDX-License-Identifier: MIT
#include "Platform/EndingSignals.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
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
    for (const int signal :
         {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP, SIGUSR1, SIGUSR2, SIGALRM, SIGXCPU}) {
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

TEST(EndingSignals, MakeAFileThatIsTooLargeAnErrorOfOneWrite)
{
    const EndingSignals signals;
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    std::FILE* file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(write(fileno(file), "xy", 2), 1);
    EXPECT_EQ(write(fileno(file), "z", 1), -1);
    EXPECT_EQ(errno, EFBIG);
    std::fclose(file);
    setrlimit(RLIMIT_FSIZE, &before);
}
