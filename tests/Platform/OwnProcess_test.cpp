// SPDX-License-Identifier: MIT
#include "Platform/OwnProcess.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <new>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kLong = 60s; // for what takes milliseconds, on a loaded machine
constexpr std::size_t kMost = 100000;

void say(int out, std::string_view text)
{
    EXPECT_EQ(write(out, text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

struct Result {
    OwnProcessEnd end;
    std::string text = "something before";
};

Result run(const std::function<void(int)>& work, std::chrono::milliseconds limit = kLong,
           std::size_t most = kMost)
{
    Result result{};
    result.end = inOwnProcess(work, steady_clock::now() + limit, most, result.text);
    // It is never left as a zombie.
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    return result;
}

} // namespace

TEST(OwnProcess, HandsBackAllThatItsWorkWrites)
{
    const std::string longer(70000, 'x'); // than a pipe holds
    const auto result = run([&](int out) {
        say(out, "first, ");
        say(out, longer);
    });
    EXPECT_EQ(result.end, OwnProcessEnd::done);
    EXPECT_EQ(result.text, "first, " + longer);
}

TEST(OwnProcess, ChangesNothingInTheOneThatWaits)
{
    int number = 1;
    const auto result = run([&](int) { number = 2; });
    EXPECT_EQ(result.end, OwnProcessEnd::done);
    EXPECT_EQ(result.text, "");
    EXPECT_EQ(number, 1);
}

TEST(OwnProcess, EndsWithItsTime)
{
    const auto start = steady_clock::now();
    const auto result = run(
        [](int out) {
            say(out, "begun");
            std::this_thread::sleep_for(kLong);
        },
        200ms);
    EXPECT_EQ(result.end, OwnProcessEnd::timeOver);
    EXPECT_EQ(result.text, "begun");
    EXPECT_GE(steady_clock::now() - start, 200ms);
    EXPECT_LT(steady_clock::now() - start, kLong);
}

TEST(OwnProcess, EndsWithItsTimeAlsoIfItNeverStopsWriting)
{
    const auto result = run(
        [](int out) {
            for (;;) {
                say(out, "x");
                std::this_thread::sleep_for(1ms);
            }
        },
        200ms);
    EXPECT_EQ(result.end, OwnProcessEnd::timeOver);
}

TEST(OwnProcess, EndsWithItsTimeAlsoIfItHasClosedItsPipe)
{
    const auto start = steady_clock::now();
    const auto result = run(
        [](int out) {
            close(out);
            std::this_thread::sleep_for(kLong);
        },
        200ms);
    EXPECT_EQ(result.end, OwnProcessEnd::timeOver);
    EXPECT_LT(steady_clock::now() - start, kLong);
}

TEST(OwnProcess, EndsAtItsLimitOfBytes)
{
    const auto result = run([](int out) { say(out, "12345678"); }, kLong, 7);
    EXPECT_EQ(result.end, OwnProcessEnd::tooMuch);
    EXPECT_EQ(result.text, "1234567");
    EXPECT_EQ(run([](int out) { say(out, "1234567"); }, kLong, 7).end, OwnProcessEnd::done);
}

TEST(OwnProcess, ThatCrashesOrThrowsHasFailed)
{
    for (const int signal : {SIGKILL, SIGTERM}) {
        const auto result = run([signal](int out) {
            say(out, "half");
            raise(signal);
        });
        EXPECT_EQ(result.end, OwnProcessEnd::failed);
        EXPECT_EQ(result.text, "half");
    }
    EXPECT_EQ(run([](int) { throw std::bad_alloc(); }).end, OwnProcessEnd::failed);
}

TEST(OwnProcess, InheritsNoDescriptorButTheStandardStreams)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const auto result = run([&](int out) {
        for (int number = 0; number < 1000; ++number) {
            if (number != out && fcntl(number, F_GETFD) >= 0)
                say(out, std::to_string(number) + " ");
        }
    });
    EXPECT_EQ(result.text, "0 1 2 ");
    close(ends[0]);
    close(ends[1]);
}
