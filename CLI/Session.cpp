// SPDX-License-Identifier: MIT
#include "CLI/Session.h"

#include "UI/Run/WatchedRun.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

// An answer is a word; a longer line is no answer.
constexpr std::size_t kLongestLine = 80;
// Milliseconds between two looks where the system cannot wait for descriptors.
constexpr int kBlindPause = 100;

} // namespace

Session::Session() : m_start(tickMilliseconds()), m_notified(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
}

Session::~Session()
{
    if (m_notified >= 0)
        close(m_notified);
}

void Session::setDeadline(double seconds)
{
    assert(seconds >= 0);
    m_deadline = m_start + static_cast<std::uint64_t>(seconds * 1000);
}

double Session::seconds() const
{
    return static_cast<double>(tickMilliseconds() - m_start) / 1000;
}

std::optional<std::string> Session::readLine(int descriptor)
{
    std::string line;
    for (;;) {
        const auto wake = waitFor(descriptor, waitMilliseconds());
        if (wake == Wake::signal || wake == Wake::deadline)
            return std::nullopt;
        if (wake != Wake::readable)
            continue;
        char c = '\0';
        if (read(descriptor, &c, 1) <= 0 || c == '\n')
            return line;
        if (line.size() < kLongestLine)
            line += c;
    }
}

Wake Session::wait(double until)
{
    const auto left = std::clamp((until - seconds()) * 1000, 1.0, static_cast<double>(INT_MAX));
    return waitFor(-1, std::min(waitMilliseconds(), static_cast<int>(left)));
}

void Session::notify() const
{
    const std::uint64_t once = 1;
    [[maybe_unused]] const auto written = write(m_notified, &once, sizeof once);
}

Wake Session::waitFor(int readable, int milliseconds)
{
    if (takeDeadline())
        return Wake::deadline;
    std::array<pollfd, 3> entries = {
        {{m_signals.descriptor(), POLLIN, 0}, {m_notified, POLLIN, 0}, {readable, POLLIN, 0}}};
    const bool isBlind = poll(entries.data(), entries.size(), milliseconds) < 0 && errno != EINTR;
    if (isBlind) { // without the call, what happens is looked for instead of waited for
        pauseMilliseconds(static_cast<unsigned long>(std::min(milliseconds, kBlindPause)));
        entries[2].revents = readable >= 0 ? POLLIN : 0;
    }
    if ((isBlind || entries[0].revents != 0) && m_signals.take() != 0)
        return Wake::signal;
    if (takeDeadline())
        return Wake::deadline;
    std::uint64_t count = 0; // of calls; reading it clears them
    if ((isBlind || entries[1].revents != 0)
        && read(m_notified, &count, sizeof count) == sizeof count)
        return Wake::notified;
    return entries[2].revents != 0 ? Wake::readable : Wake::tick;
}

int Session::waitMilliseconds() const
{
    const auto interval = std::max<std::uint64_t>(eventWaitLimit(WatchedRun::kLookInterval), 1);
    const auto now = tickMilliseconds();
    const auto left = m_deadline.has_value() && *m_deadline > now ? *m_deadline - now : interval;
    return static_cast<int>(std::min(interval, left));
}

bool Session::takeDeadline()
{
    if (!m_deadline.has_value() || tickMilliseconds() < *m_deadline)
        return false;
    m_deadline.reset();
    m_overdue = true;
    return true;
}
