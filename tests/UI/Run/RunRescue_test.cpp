// SPDX-License-Identifier: MIT
#include "UI/Run/RunRescue.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

void sayWhy(const char* why)
{
    std::fprintf(stderr, "finished: %s\n", why);
}

// By a signal, or by a sanitizer that caught it.
bool crashed(int status)
{
    return WIFSIGNALED(status) || (WIFEXITED(status) && WEXITSTATUS(status) != 0);
}

void withoutCatching(const std::function<void()>& work) noexcept
{
    work();
}

} // namespace

TEST(RunRescue, FinishesARunThatTheProgramsExitWouldCut)
{
    EXPECT_EXIT(
        {
            const RunRescue rescue(&sayWhy);
            std::exit(3);
        },
        testing::ExitedWithCode(3), "finished: the display has gone");
}

TEST(RunRescue, FinishesARunBeforeACrashEndsTheProgram)
{
    for (const int signal : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV})
        EXPECT_EXIT(
            {
                const RunRescue rescue(&sayWhy);
                std::raise(signal);
                std::_Exit(0);
            },
            crashed, "finished: the window has crashed");
}

TEST(RunRescue, FinishesARunBeforeAnUncaughtExceptionEndsTheProgram)
{
    EXPECT_EXIT(
        {
            const RunRescue rescue(&sayWhy);
            withoutCatching([] { throw std::bad_alloc(); });
        },
        crashed, "finished: the window has crashed");
}

TEST(RunRescue, LetsTheProgramEndEvenIfItCannotFinish)
{
    EXPECT_EXIT(
        {
            const RunRescue rescue([](const char* why) {
                sayWhy(why);
                throw std::bad_alloc();
            });
            std::abort();
        },
        crashed, "finished: the window has crashed");
}

TEST(RunRescue, FinishesOnceIfFinishingCrashesToo)
{
    EXPECT_EXIT(
        {
            const RunRescue rescue([](const char* why) {
                sayWhy(why);
                std::abort();
            });
            std::raise(SIGSEGV);
        },
        crashed, "^finished: the window has crashed\n");
}

TEST(RunRescue, FinishesARunWhoseWindowStandsStill)
{
    EXPECT_EXIT(
        {
            const RunRescue rescue(&sayWhy, 1);
            for (;;)
                pause();
        },
        crashed, "finished: the window stood still");
}

TEST(RunRescue, LetsAWindowThatGoesOnAlone)
{
    EXPECT_EXIT(
        {
            std::optional<RunRescue> rescue(std::in_place, &sayWhy, 2);
            for (int i = 0; i < 35; ++i) {
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
                rescue->beat();
            }
            rescue.reset();
            std::exit(3);
        },
        testing::ExitedWithCode(3), "^$");
}

TEST(RunRescue, TakesFinishingForNoStandstill)
{
    EXPECT_EXIT(
        {
            const RunRescue rescue(
                [](const char* why) {
                    std::this_thread::sleep_for(std::chrono::seconds(3));
                    sayWhy(why);
                },
                1);
            std::exit(3);
        },
        testing::ExitedWithCode(3), "finished: the display has gone");
}

TEST(RunRescue, HasNothingToDoOnceTheRunHasEnded)
{
    EXPECT_EXIT(
        {
            std::optional<RunRescue> rescue(std::in_place, &sayWhy);
            rescue.reset();
            std::exit(3);
        },
        testing::ExitedWithCode(3), "^$");
}

TEST(RunRescue, WaitsForNothingWhenAnotherThreadCrashes)
{
    EXPECT_EXIT(
        {
            const RunRescue rescue(&sayWhy);
            std::thread([] { std::raise(SIGABRT); }).join();
        },
        crashed, "^$");
}
