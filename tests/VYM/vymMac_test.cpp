// SPDX-License-Identifier: MIT
#include "VYM/vymMac.h"
#include "tests/support/ScriptedTime.h"

#include <atomic>
#include <chrono>
#include <ctime>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr long kSoonMs = 30000; // far less than the waits that must not be waited out

long millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

// An event from creation to closing.
class Event {
public:
    Event() { EXPECT_TRUE(CreateEvent(m_record)); }
    ~Event() { EXPECT_TRUE(CloseEvent(m_record)); }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    TAG_MUTEXDATA& record() { return m_record; }

private:
    TAG_MUTEXDATA m_record{};
};

void* setFlag(void* flag)
{
    static_cast<std::atomic<int>*>(flag)->store(1);
    return nullptr;
}

} // namespace

TEST(Event, IsCreatedWithoutTouchingItsSignal)
{
    TAG_MUTEXDATA record{};
    record.signalled = 1;
    ASSERT_TRUE(CreateEvent(record));
    EXPECT_EQ(record.created, 1U);
    EXPECT_EQ(record.signalled, 1U);
    EXPECT_TRUE(CloseEvent(record));
    EXPECT_EQ(record.created, 0U);
}

TEST(Event, ThatIsNotSetTimesOutAtOnceForZeroMilliseconds)
{
    Event event;
    const auto start = Clock::now();
    EXPECT_EQ(WaitForSingleObjectEvent(event.record(), 0), 258UL);
    EXPECT_LT(millisecondsSince(start), kSoonMs);
    EXPECT_FALSE(IsEventSet(event.record()));
}

TEST(Event, TimesOutNoEarlierThanRequested)
{
    Event event;
    const auto start = Clock::now();
    EXPECT_EQ(WaitForSingleObjectEvent(event.record(), 20), 258UL);
    EXPECT_GE(millisecondsSince(start), 19); // the clock's microseconds are cut off
}

TEST(Event, IsWaitedForAcrossTheFullSecond)
{
    Event event;
    // At almost any time, the current fraction of a second plus 999 ms exceeds a second.
    unsigned long result = 0;
    std::thread waiter([&] { result = WaitForSingleObjectEvent(event.record(), 59999); });
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    SetEvent(event.record());
    waiter.join();
    EXPECT_EQ(result, 128UL);
}

TEST(Event, StaysSetForGood)
{
    Event event;
    EXPECT_TRUE(SetEvent(event.record()));
    EXPECT_EQ(event.record().signalled, 1U);
    for (unsigned long wait : {0UL, 1UL, kInfinite, 10UL})
        EXPECT_EQ(WaitForSingleObjectEvent(event.record(), wait), 128UL);
    EXPECT_TRUE(SetEvent(event.record()));
    EXPECT_TRUE(IsEventSet(event.record()));
}

TEST(Event, WakesTheThreadThatWaitsForIt)
{
    for (unsigned long wait : {kInfinite, 60000UL}) {
        Event event;
        std::atomic<bool> waiting{false};
        unsigned long result = 0;
        std::thread waiter([&] {
            waiting = true;
            result = WaitForSingleObjectEvent(event.record(), wait);
        });
        while (!waiting)
            std::this_thread::yield();
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        const auto start = Clock::now();
        EXPECT_TRUE(SetEvent(event.record()));
        waiter.join();
        EXPECT_EQ(result, 128UL);
        EXPECT_LT(millisecondsSince(start), kSoonMs);
    }
}

TEST(Event, IsNeverMissedHoweverSettingAndWaitingInterleave)
{
    constexpr int kRounds = 1000;
    for (int round = 0; round < kRounds; ++round) {
        Event event;
        unsigned long result = 0;
        std::thread waiter([&] { result = WaitForSingleObjectEvent(event.record(), kInfinite); });
        if (round % 2 == 0)
            std::this_thread::yield();
        SetEvent(event.record());
        waiter.join(); // after a lost wake-up this never returns
        ASSERT_EQ(result, 128UL) << round;
    }
}

TEST(Event, IsNotMissedByAWaiterThatComesTooLateForTheSignal)
{
    Event event;
    auto& record = event.record();
    unsigned long result = 0;
    pthread_mutex_lock(&record.mutex);
    std::thread waiter([&] { result = WaitForSingleObjectEvent(record, 3000); });
    std::this_thread::sleep_for(std::chrono::milliseconds(5)); // it now waits for the mutex
    pthread_cond_signal(&record.cond); // the signal of setting the event
    std::atomic_ref(record.signalled).store(1);
    pthread_mutex_unlock(&record.mutex);
    waiter.join();
    EXPECT_EQ(result, 128UL);
}

TEST(Event, IsSetWhileOtherThreadsKeepCheckingIt)
{
    constexpr int kRounds = 100;
    for (int round = 0; round < kRounds; ++round) {
        Event event;
        const auto poll = [&] {
            while (WaitForSingleObjectEvent(event.record(), 1) == kWaitTimedOut)
                std::this_thread::yield();
        };
        std::thread first(poll);
        std::thread second(poll);
        SetEvent(event.record());
        first.join();
        second.join();
        ASSERT_TRUE(IsEventSet(event.record()));
    }
}

TEST(Event, WaitsOnlyAsLongAsTheTimeSourceAllows)
{
    ScriptedTime time;
    Event event;
    const auto start = Clock::now();
    EXPECT_EQ(WaitForSingleObjectEvent(event.record(), 60000), 258UL);
    EXPECT_LT(millisecondsSince(start), kSoonMs);
}

TEST(Thread, RunsItsRoutineWithItsArgument)
{
    std::atomic<int> flag{0};
    TAG_THREADDATA thread{};
    ASSERT_TRUE(_beginthread(thread, &setFlag, 0, &flag));
    EXPECT_EQ(thread.created, 1U);
    EXPECT_EQ(WaitForSingleObjectThread(thread, 0), 128UL) << "waits though no time was given";
    EXPECT_EQ(thread.created, 0U);
    EXPECT_EQ(flag, 1);
}

TEST(Thread, IsJoinedASecondTimeWithoutHarm)
{
    std::atomic<int> flag{0};
    TAG_THREADDATA thread{};
    ASSERT_TRUE(_beginthread(thread, &setFlag, 0, &flag));
    EXPECT_EQ(WaitForSingleObjectThread(thread, kInfinite), 128UL);
    EXPECT_EQ(WaitForSingleObjectThread(thread, kInfinite), 128UL);
    EXPECT_EQ(thread.created, 0U);
}

TEST(Thread, ThatNeverStartedIsJoinedWithoutHarm)
{
    TAG_THREADDATA thread{};
    EXPECT_EQ(WaitForSingleObjectThread(thread, 10), 128UL);
}

TEST(Thread, NeedsARoutine)
{
    TAG_THREADDATA thread{};
    EXPECT_FALSE(_beginthread(thread, nullptr, 0, nullptr));
    EXPECT_EQ(thread.created, 0U);
}

TEST(Thread, AcceptsAStackSizeThatTheSystemAccepts)
{
    std::atomic<int> flag{0};
    TAG_THREADDATA thread{};
    EXPECT_FALSE(_beginthread(thread, &setFlag, 1, &flag)) << "no stack is that small";
    EXPECT_EQ(thread.created, 0U);
    ASSERT_TRUE(_beginthread(thread, &setFlag, 1024 * 1024, &flag));
    EXPECT_EQ(WaitForSingleObjectThread(thread, 0), 128UL);
    EXPECT_EQ(flag, 1);
}

TEST(Thread, EndsWhereItSaysSo)
{
    static std::atomic<int> reached{0};
    reached = 0;
    TAG_THREADDATA thread{};
    const auto routine = [](void*) -> void* {
        reached = 1;
        _endthread(0);
        reached = 2;
    };
    ASSERT_TRUE(_beginthread(thread, routine, 0, nullptr));
    EXPECT_EQ(WaitForSingleObjectThread(thread, 0), 128UL);
    EXPECT_EQ(reached, 1);
}

TEST(Time, MovesOnWithAPause)
{
    const auto before = tickMilliseconds();
    pauseMilliseconds(5);
    EXPECT_GE(tickMilliseconds(), before + 4); // both times are cut to whole milliseconds
}

TEST(Time, ComesFromThePluggedInSource)
{
    {
        ScriptedTime time;
        EXPECT_EQ(tickMilliseconds(), 1000U);
        pauseMilliseconds(2000);
        EXPECT_EQ(tickMilliseconds(), 3000U);
        EXPECT_EQ(time.pauses(), std::vector<unsigned long>{2000});
        EXPECT_EQ(eventWaitLimit(500), 1UL);
    }
    EXPECT_EQ(eventWaitLimit(500), 500UL) << "the system's clock again";
}

TEST(Time, IsNotSpentOnTheProcessorDuringAPause)
{
    const auto before = std::clock();
    pauseMilliseconds(400);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 5);
}
