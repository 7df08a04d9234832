// SPDX-License-Identifier: MIT
#include "Platform/OwnProcess.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFirstFree = 3; // after the standard streams

[[noreturn]] void runAndEnd(const std::function<void(int)>& work, int out)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (out != kFirstFree)
        dup2(out, kFirstFree);
    close_range(kFirstFree + 1, std::numeric_limits<unsigned>::max(), 0);
    try {
        work(kFirstFree);
    } catch (const std::exception&) {
        _exit(EXIT_FAILURE);
    }
    _exit(EXIT_SUCCESS);
}

class Child {
public:
    explicit Child(pid_t process) : m_process(process) { }
    ~Child()
    {
        if (m_process >= 0) {
            kill(m_process, SIGKILL);
            ended(0);
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // It may have closed its end of the pipe, and still run.
    OwnProcessEnd waitForEnd(Clock::time_point end)
    {
        while (!ended(WNOHANG)) {
            if (Clock::now() >= end)
                return OwnProcessEnd::timeOver;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        const bool isDone = WIFEXITED(m_status) && WEXITSTATUS(m_status) == EXIT_SUCCESS;
        return isDone ? OwnProcessEnd::done : OwnProcessEnd::failed;
    }

private:
    bool ended(int options)
    {
        pid_t found = 0;
        do
            found = waitpid(m_process, &m_status, options);
        while (found < 0 && errno == EINTR);
        if (found != 0)
            m_process = -1;
        return found != 0;
    }

    int m_status = 0;
    pid_t m_process;
};

class ReadEnd {
public:
    explicit ReadEnd(int pipe) : m_pipe(pipe) { }
    ~ReadEnd() { close(m_pipe); }
    ReadEnd(const ReadEnd&) = delete;
    ReadEnd& operator=(const ReadEnd&) = delete;

    // Until the pipe has no writer any more.
    OwnProcessEnd readAll(Clock::time_point end, std::size_t most, std::string& result) const
    {
        std::array<char, 16384> piece{};
        while (wait(end)) {
            const auto count = read(m_pipe, piece.data(), piece.size());
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return count == 0 ? OwnProcessEnd::done : OwnProcessEnd::failed;
            const auto room = most - result.size();
            result.append(piece.data(), std::min(static_cast<std::size_t>(count), room));
            if (static_cast<std::size_t>(count) > room)
                return OwnProcessEnd::tooMuch;
        }
        return OwnProcessEnd::timeOver;
    }

private:
    // False when the time is over. A poll that fails is tried again until then.
    [[nodiscard]] bool wait(Clock::time_point end) const
    {
        for (;;) {
            using std::chrono::milliseconds;
            const auto left = std::chrono::ceil<milliseconds>(end - Clock::now()).count();
            if (left <= 0)
                return false;
            pollfd entry{m_pipe, POLLIN, 0};
            if (poll(&entry, 1, static_cast<int>(std::min<std::int64_t>(left, 1000))) > 0)
                return true;
        }
    }

    int m_pipe;
};

} // namespace

OwnProcessEnd inOwnProcess(const std::function<void(int out)>& work, Clock::time_point end,
                           std::size_t most, std::string& result)
{
    assert(work);
    result.clear();
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return OwnProcessEnd::notStarted;
    const ReadEnd in(ends[0]);
    const pid_t process = fork();
    if (process == 0)
        runAndEnd(work, ends[1]);
    close(ends[1]);
    if (process < 0)
        return OwnProcessEnd::notStarted;
    Child child(process);
    const auto ended = in.readAll(end, most, result);
    if (ended != OwnProcessEnd::done)
        return ended;
    return child.waitForEnd(end);
}
