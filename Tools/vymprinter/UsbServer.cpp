// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbServer.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>

namespace vymprinter {
namespace {

constexpr Millis kLongestWait{60000};

} // namespace

void UsbServer::run(int stop, std::uint64_t sessions)
{
    const auto start = std::chrono::steady_clock::now();
    const auto now = [&] {
        return std::chrono::duration_cast<Millis>(std::chrono::steady_clock::now() - start);
    };
    while (sessions == 0 || sessionsEnded() < sessions) {
        auto list = pollList(stop);
        if (::poll(list.data(), list.size(), waitTime(now())) < 0 && errno != EINTR)
            break;
        if (list.front().revents != 0)
            break;
        for (const auto& printer : m_printers)
            printer->serve(now());
    }
    m_printers.clear();
}

std::vector<pollfd> UsbServer::pollList(int stop) const
{
    std::vector<pollfd> list = {{stop, POLLIN, 0}};
    for (const auto& printer : m_printers) {
        list.push_back({printer->controlFile(), POLLIN, 0});
        list.push_back({printer->transferEvent(), POLLIN, 0});
    }
    return list;
}

int UsbServer::waitTime(Millis now) const
{
    auto until = now + kLongestWait;
    for (const auto& printer : m_printers)
        until = std::min(until, printer->nextDue().value_or(until));
    return static_cast<int>(std::max(until - now, Millis(0)).count());
}

std::uint64_t UsbServer::sessionsEnded() const
{
    std::uint64_t ended = 0;
    for (const auto& printer : m_printers)
        ended += printer->sessionsEnded();
    return ended;
}

} // namespace vymprinter
