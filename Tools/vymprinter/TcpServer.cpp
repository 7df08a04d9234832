// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/TcpServer.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>

namespace vymprinter {
namespace {

constexpr std::size_t kMostConnections = 4096; // far more than one test needs
constexpr Millis kAcceptPause{100}; // after the system ran out of descriptors
constexpr Millis kListenPause{1000}; // after another program took a restarting printer's address
constexpr Millis kLongestWait{60000};

Millis sinceStart(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration_cast<Millis>(std::chrono::steady_clock::now() - start);
}

} // namespace

void TcpServer::add(Listening listening, Printer printer, int window)
{
    assert(listening.socket.valid());
    m_desks.push_back({std::move(listening.socket), listening.endpoint, window,
                       std::make_unique<Printer>(std::move(printer))});
}

void TcpServer::run(int stop, std::uint64_t sessions)
{
    const auto start = std::chrono::steady_clock::now();
    std::uint64_t ended = 0;
    while (sessions == 0 || ended < sessions) {
        auto list = pollList(stop);
        if (::poll(list.data(), list.size(), waitTime(sinceStart(start))) < 0 && errno != EINTR)
            break;
        if (list.front().revents != 0)
            break;
        serveRound(list, sinceStart(start));
        ended += dropEnded();
    }
    m_connections.clear();
}

// The stop descriptor, then the printers, then the connections, in their order.
std::vector<pollfd> TcpServer::pollList(int stop) const
{
    std::vector<pollfd> list;
    list.reserve(1 + m_desks.size() + m_connections.size());
    list.push_back({stop, POLLIN, 0});
    const bool open = m_acceptAgain == Millis(0) && m_connections.size() < kMostConnections;
    for (const auto& desk : m_desks)
        list.push_back({desk.socket.get(), open ? short{POLLIN} : short{0}, 0});
    for (const auto& connection : m_connections)
        list.push_back({connection.socket(), connection.events(), 0});
    return list;
}

int TcpServer::waitTime(Millis now) const
{
    auto until = now + kLongestWait;
    if (m_acceptAgain != Millis(0))
        until = std::min(until, m_acceptAgain);
    for (const auto& desk : m_desks)
        until = std::min(until, desk.printer->backAt.value_or(until));
    for (const auto& connection : m_connections)
        until = std::min(until, connection.nextDue().value_or(until));
    return static_cast<int>(std::max(until - now, Millis(0)).count());
}

void TcpServer::serveRound(const std::vector<pollfd>& ready, Millis now)
{
    if (now >= m_acceptAgain)
        m_acceptAgain = Millis(0);
    auto entry = ready.begin() + 1 + static_cast<std::ptrdiff_t>(m_desks.size());
    for (auto& connection : m_connections)
        connection.serve((entry++)->revents, now);
    for (std::size_t i = 0; i < m_desks.size(); ++i)
        if ((ready[1 + i].revents & POLLIN) != 0 && !m_desks[i].printer->backAt)
            accept(m_desks[i], now);
    for (auto& desk : m_desks)
        switchOffOrOn(desk, now);
}

// A restarting printer refuses connections; one that is back listens where it listened before.
void TcpServer::switchOffOrOn(Desk& desk, Millis now)
{
    auto& backAt = desk.printer->backAt;
    if (!backAt)
        return;
    if (*backAt > now) {
        desk.socket = FileHandle();
        return;
    }
    auto listening = listenOn(desk.endpoint, desk.window);
    desk.socket = std::move(listening.socket);
    backAt = listening.error.empty() ? std::nullopt : std::optional(now + kListenPause);
    desk.printer->record.remark(listening.error.empty() ? "printer is back" : listening.error);
}

void TcpServer::accept(Desk& desk, Millis now)
{
    FileHandle socket(::accept4(desk.socket.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (socket.valid())
        m_connections.emplace_back(std::move(socket), *desk.printer, now).serve(0, now);
    else if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM)
        m_acceptAgain = now + kAcceptPause;
}

std::uint64_t TcpServer::dropEnded()
{
    return m_connections.remove_if([](const auto& connection) { return connection.over(); });
}

} // namespace vymprinter
