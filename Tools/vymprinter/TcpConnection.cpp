// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/TcpConnection.h"

#include "Tools/vymprinter/SessionRecorder.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

namespace vymprinter {
namespace {

constexpr std::size_t kReadSize = 64U << 10; // a usual packet in one go
constexpr int kReadsPerRound = 16; // so that one busy updater does not starve the others

bool wouldBlock()
{
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

} // namespace

TcpConnection::TcpConnection(FileHandle socket, Printer& printer, Millis now)
    : m_socket(std::move(socket)), m_session(printer, now),
      m_recorder(printer.recorder != nullptr && printer.recorder->claim() ? printer.recorder
                                                                          : nullptr)
{
    const int yes = 1; // a reply in two parts must not wait for the updater's acknowledgement
    ::setsockopt(m_socket.get(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

short TcpConnection::events() const
{
    int events = 0;
    if (m_session.wantsInput() && !m_peerDone)
        events |= POLLIN;
    if (m_session.stalled() && !m_peerDone)
        events |= POLLRDHUP;
    if (m_sendBlocked)
        events |= POLLOUT;
    return static_cast<short>(events);
}

void TcpConnection::serve(short ready, Millis now)
{
    assert(!m_over);
    if ((ready & (POLLERR | POLLHUP | POLLNVAL)) != 0) {
        m_over = true;
        return;
    }
    if ((ready & POLLOUT) != 0)
        m_sendBlocked = false;
    if ((ready & POLLRDHUP) != 0 && m_session.stalled())
        m_peerDone = true;
    if ((ready & POLLIN) != 0)
        readSome(now);
    if (m_peerDone)
        m_session.inputEnded();
    m_session.advance(now);
    writeDue(now);
    m_over = m_over || m_session.finished();
}

void TcpConnection::readSome(Millis now)
{
    std::array<std::uint8_t, kReadSize> buffer;
    const auto got = ::recv(m_socket.get(), buffer.data(), buffer.size(), 0);
    if (got > 0) {
        const auto bytes = ByteView(buffer).first(static_cast<std::size_t>(got));
        if (m_recorder != nullptr)
            m_recorder->note(true, bytes, now);
        m_session.receive(bytes);
    } else if (got == 0)
        m_peerDone = true;
    else if (!wouldBlock())
        m_over = true;
}

void TcpConnection::writeDue(Millis now)
{
    auto& parts = m_session.outgoing();
    while (!m_over && !m_sendBlocked && !parts.empty() && parts.front().due <= now) {
        if (parts.front().end != LinkEnd::none)
            return endLink(parts.front().end);
        const auto bytes = parts.unsent();
        const auto sent = ::send(m_socket.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent >= 0) {
            if (m_recorder != nullptr)
                m_recorder->note(false, bytes.first(static_cast<std::size_t>(sent)), now);
            parts.sent(static_cast<std::size_t>(sent));
        } else if (wouldBlock())
            m_sendBlocked = true;
        else
            m_over = true;
    }
}

// Reads and drops arrived bytes before a clean end: unread bytes would turn it into a reset.
void TcpConnection::endLink(LinkEnd how)
{
    m_over = true;
    if (how == LinkEnd::reset) {
        const linger atOnce{1, 0};
        ::setsockopt(m_socket.get(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        return;
    }
    ::shutdown(m_socket.get(), SHUT_WR);
    std::array<std::uint8_t, kReadSize> buffer;
    for (int i = 0; i < kReadsPerRound; ++i)
        if (::recv(m_socket.get(), buffer.data(), buffer.size(), 0) <= 0)
            return;
}

std::optional<Millis> TcpConnection::nextDue() const
{
    if (m_session.hasWork())
        return Millis(0);
    auto due = m_session.busyUntil();
    if (!m_sendBlocked && !m_session.outgoing().empty())
        due = std::min(due.value_or(Millis::max()), m_session.outgoing().front().due);
    return due;
}

} // namespace vymprinter
