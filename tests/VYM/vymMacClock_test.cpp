// SPDX-License-Identifier: MIT
// Waits while the computer's clock is set back: here every call that reads the wall clock gets a
// time that is an hour slow.
#include "VYM/vymMac.h"

#include <chrono>
#include <ctime>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {
constexpr time_t kHour = 3600;
long g_lagMs = 0; // of the monotonic clock as the product reads it
} // namespace

// Replaces the C library's.
extern "C" int gettimeofday(timeval* now, void* /*zone*/) noexcept
{
    timespec real{};
    syscall(SYS_clock_gettime, CLOCK_REALTIME, &real);
    now->tv_sec = real.tv_sec - kHour;
    now->tv_usec = real.tv_nsec / 1000;
    return 0;
}

extern "C" int clock_gettime(clockid_t clock, timespec* now) noexcept
{
    const auto result = syscall(SYS_clock_gettime, clock, now);
    if (clock == CLOCK_REALTIME)
        now->tv_sec -= kHour;
    const long nanoseconds = now->tv_nsec - g_lagMs * 1000000;
    now->tv_sec -= nanoseconds < 0 ? 1 : 0;
    now->tv_nsec = nanoseconds + (nanoseconds < 0 ? 1000000000 : 0);
    return static_cast<int>(result);
}

TEST(MonotonicWait, TakesItsTimeWhereTheWallClockIsSetBack)
{
    TAG_MUTEXDATA event{};
    ASSERT_TRUE(CreateEvent(event));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(WaitForSingleObjectEvent(event, 50), 258UL);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(50)) << "it ended at once: by the wall clock";
    EXPECT_TRUE(CloseEvent(event));
}

// By a clock that is 950 ms slow, the end of a wait of a second is 50 ms away.
TEST(MonotonicWait, CountsWholeSeconds)
{
    TAG_MUTEXDATA event{};
    ASSERT_TRUE(CreateEvent(event));
    g_lagMs = 950;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(WaitForSingleObjectEvent(event, 1000), 258UL);
    const auto waited = std::chrono::steady_clock::now() - start;
    g_lagMs = 0;
    EXPECT_GE(waited, std::chrono::milliseconds(50)) << "it ended at once: without its second";
    EXPECT_TRUE(CloseEvent(event));
}
