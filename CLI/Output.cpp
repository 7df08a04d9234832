#include "CLI/Output.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <poll.h>
#include <unistd.h>

namespace {

// A reader that takes nothing for this long at the end of the program has gone for good.
constexpr int kReaderPatience = 10000; // milliseconds

bool isWritable(int descriptor, int waitMilliseconds)
{
    pollfd entry{descriptor, POLLOUT, 0};
    int ready = 0;
    do {
        ready = poll(&entry, 1, waitMilliseconds);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
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

bool Output::flush(int waitMilliseconds)
{
    if (!isWritable(m_descriptor, waitMilliseconds))
        return false;
    // A ready pipe has room for this many bytes; a longer write could block.
    const auto length = std::min<std::size_t>(m_waiting.size(), PIPE_BUF);
    const auto written = ::write(m_descriptor, m_waiting.data(), length);
    if (written > 0) {
        m_waiting.erase(0, static_cast<std::size_t>(written));
        return true;
    }
    if (written < 0 && (errno == EINTR || errno == EAGAIN))
        return waitMilliseconds > 0;
    m_broken = true;
    m_waiting.clear();
    return false;
}
