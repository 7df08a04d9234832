// SPDX-License-Identifier: MIT
#include "CLI/Output.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <unistd.h>

namespace {

// A reader that takes nothing for this long at the end of the program has gone for good.
constexpr int kReaderPatience = 10000; // milliseconds

enum class Ready { yes, no, unknown };

// Unknown where the system lacks the memory for the call.
Ready readyFor(int descriptor, int waitMilliseconds)
{
    pollfd entry{descriptor, POLLOUT, 0};
    int ready = 0;
    do {
        ready = poll(&entry, 1, waitMilliseconds);
    } while (ready < 0 && errno == EINTR);
    if (ready < 0)
        return Ready::unknown;
    return ready > 0 ? Ready::yes : Ready::no;
}

} // namespace

void Output::write(std::string_view text)
{
    if (m_broken)
        return;
    m_waiting += text;
    while (!m_waiting.empty() && flush(0)) { }
}

void Output::writeProgress(std::string_view text)
{
    if (m_waiting.size() + text.size() <= kBacklogLimit)
        write(text);
}

void Output::drain()
{
    while (!m_waiting.empty() && flush(kReaderPatience)) { }
}

void Output::writeLast(std::string_view text)
{
    drain();
    while (!m_broken && m_waiting.empty() && !text.empty()) {
        const auto [bytes, goesOn] = give(text, kReaderPatience);
        text.remove_prefix(bytes);
        if (!goesOn)
            return;
    }
}

bool Output::flush(int waitMilliseconds)
{
    const auto [bytes, goesOn] = give(m_waiting, waitMilliseconds);
    m_waiting.erase(0, bytes);
    return goesOn;
}

Output::Given Output::give(std::string_view text, int waitMilliseconds)
{
    const bool isEnd = waitMilliseconds > 0;
    const auto ready = readyFor(m_descriptor, waitMilliseconds);
    // Without knowing, a text waits as long as the program runs; its end may wait for the reader.
    if (ready == Ready::no || (ready == Ready::unknown && !isEnd))
        return {0, false};
    // A ready pipe has room for this many bytes; a longer write could block.
    const auto length = std::min<std::size_t>(text.size(), PIPE_BUF);
    const auto written = ::write(m_descriptor, text.data(), length);
    if (written > 0)
        return {static_cast<std::size_t>(written), true};
    if (written < 0 && (errno == EINTR || errno == EAGAIN))
        return {0, isEnd && ready == Ready::yes};
    m_broken = true;
    m_waiting.clear();
    return {0, false};
}
