// SPDX-License-Identifier: MIT
#include "VYM/vymLock.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

// Uses the lock's interface, which hides it from a tool that reports locks taken twice.

TEST(Lock, MayBeTakenAgainByTheThreadThatHoldsIt)
{
    constexpr int kDepth = 50;
    CRITSECT section;
    Lockable& lock = section;
    for (int i = 0; i < kDepth; ++i)
        ASSERT_EQ(lock.Lock(), 0);
    for (int i = 0; i < kDepth; ++i)
        ASSERT_EQ(lock.Unlock(), 0);
}

TEST(Lock, IsFreeForOthersOnlyAfterTheLastUnlock)
{
    CRITSECT section;
    Lockable& lock = section;
    bool released = false; // written and read only under the lock
    lock.Lock();
    lock.Lock();
    std::thread other([&] {
        const HoldLock hold(section);
        EXPECT_TRUE(released);
    });
    lock.Unlock();
    std::this_thread::sleep_for(std::chrono::milliseconds(5)); // a wrong lock lets it in here
    released = true;
    lock.Unlock();
    other.join();
}

TEST(Lock, KeepsThreadsApart)
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 2000;
    CRITSECT section;
    Lockable& lock = section;
    int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < kRounds; ++round) {
                const HoldLock hold(section);
                lock.Lock();
                ++count;
                lock.Unlock();
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(count, kThreads * kRounds);
}

TEST(Lock, IsDestroyedThroughItsInterface)
{
    const std::unique_ptr<Lockable> lock = std::make_unique<CRITSECT>();
    EXPECT_EQ(lock->Lock(), 0);
    EXPECT_EQ(lock->Unlock(), 0);
}

TEST(HeldLock, IsReleasedAtTheEndOfItsScope)
{
    CRITSECT lock;
    {
        const HoldLock hold(lock);
    }
    std::thread other([&] { const HoldLock hold(lock); });
    other.join(); // would never return
}
