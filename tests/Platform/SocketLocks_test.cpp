// SPDX-License-Identifier: MIT
#include "Platform/SystemPrinterLocks.h"

#include <array>
#include <atomic>
#include <barrier>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Status = PrinterLocks::Status;

PrinterLocks::Attempt take(const std::string& name)
{
    return systemPrinterLocks()->take(name);
}

// A name that no other program of this machine uses.
std::string ownName(const std::string& name)
{
    return "test " + std::to_string(getpid()) + " " + name;
}

} // namespace

TEST(SocketLocks, APrinterIsTakenOnceAndFreeAgainAfterwards)
{
    auto first = take(ownName("once"));
    ASSERT_EQ(first.status, Status::taken);
    const auto second = take(ownName("once"));
    EXPECT_EQ(second.status, Status::held);
    EXPECT_EQ(second.lock, nullptr);
    EXPECT_EQ(second.holder, getpid());
    first.lock.reset();
    EXPECT_EQ(take(ownName("once")).status, Status::taken);
}

TEST(SocketLocks, TwoPrintersAreNeverTakenForOne)
{
    const auto plain = take(ownName("a"));
    EXPECT_EQ(take(ownName("b")).status, Status::taken);
    EXPECT_EQ(take(ownName("a ")).status, Status::taken);
    const std::string longName(5000, 'x');
    const auto whole = take(ownName(longName));
    EXPECT_EQ(take(ownName(longName + "y")).status, Status::taken);
    EXPECT_EQ(take(ownName(longName)).status, Status::held);
}

TEST(SocketLocks, TheKernelFreesTheLockOfAProcessThatWasKilled)
{
    std::array<int, 2> ready{};
    ASSERT_EQ(pipe(ready.data()), 0);
    const auto child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const auto held = take("test of a killed one " + std::to_string(getppid()));
        const char said = held.status == Status::taken ? 'y' : 'n';
        static_cast<void>(write(ready[1], &said, 1) == 1);
        pause();
        _exit(0);
    }
    char said = 0;
    ASSERT_EQ(read(ready[0], &said, 1), 1);
    EXPECT_EQ(said, 'y');
    const auto name = "test of a killed one " + std::to_string(getpid());
    const auto refused = take(name);
    EXPECT_EQ(refused.status, Status::held);
    EXPECT_EQ(refused.holder, child);
    kill(child, SIGKILL);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    EXPECT_EQ(take(name).status, Status::taken);
    close(ready[0]);
    close(ready[1]);
}

// The printer itself would let everybody write.
TEST(SocketLocks, InAThousandRacesOneWritesAtATime)
{
    constexpr int kRaces = 1000;
    constexpr int kRacers = 4;
    const auto name = ownName("race");
    std::atomic<int> writers{0};
    std::atomic<int> winners{0};
    std::atomic<int> together{0};
    std::barrier start(kRacers);
    const auto race = [&] {
        for (int i = 0; i < kRaces; ++i) {
            start.arrive_and_wait();
            auto attempt = take(name);
            if (attempt.status != Status::taken)
                continue;
            ++winners;
            if (++writers != 1)
                ++together;
            std::this_thread::yield();
            --writers;
        }
    };
    std::vector<std::thread> racers;
    for (int i = 0; i < kRacers; ++i)
        racers.emplace_back(race);
    for (auto& racer : racers)
        racer.join();
    EXPECT_EQ(together, 0);
    EXPECT_GE(winners, kRaces);
}
