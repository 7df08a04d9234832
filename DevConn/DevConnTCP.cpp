// SPDX-License-Identifier: MIT
#include "DevConn/DevConnTCP.h"

#include "DevConn/ConnResult.h"
#include "VYM/vymMac.h"
#include "VYM/vymPackets.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cassert>
#include <cerrno>
#include <climits>
#include <csignal>
#include <linux/sockios.h>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::size_t kLongestPortString = 1023;
constexpr unsigned long kLeastTcpWriteMs = 5000; // a printer that stores a packet first needs time
// A printer that is switched off must not delay the run for the system's limit of minutes.
constexpr unsigned long kConnectMs = 10000;
// Limits the bytes in the system's queue: few, so that a slow printer slows the sender down at
// once, but as many as a fast one takes within a millisecond or two.
constexpr int kSendBuffer = 128 * 1024;
// A write may go on as long as some of it leaves within each time-out, but a printer that takes
// fewer bytes per second than this is given up.
constexpr std::uint64_t kSlowestBytesPerSecond = 256;
// Limits the reading from a printer that never stops sending when the connection ends.
constexpr unsigned long kMostDropped = 1024UL * 1024;

enum class Ready { yes, timedOut, failed };

// Waits for one socket; a signal neither shortens nor lengthens the wait. Uses poll, since a
// descriptor may be too large for select.
Ready waitFor(int socket, short events, unsigned long timeoutMs)
{
    if (socket < 0) // poll would ignore it and wait in vain
        return Ready::failed;
    const auto deadline = tickMilliseconds() + timeoutMs;
    for (;;) {
        pollfd entry{socket, events, 0};
        const auto now = tickMilliseconds();
        const auto left = deadline > now ? std::min<std::uint64_t>(deadline - now, INT_MAX) : 0;
        const int count = poll(&entry, 1, static_cast<int>(left));
        if (count > 0)
            return Ready::yes;
        if (count == 0)
            return Ready::timedOut;
        if (errno != EINTR)
            return Ready::failed;
    }
}

bool wouldBlock(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

// Rejects 0.0.0.0 and 255.255.255.255; inet_addr returns the latter for malformed text, too.
bool dottedAddress(const char* text, sockaddr_in& address)
{
    const auto value = inet_addr(text);
    if (value == INADDR_ANY || value == INADDR_NONE)
        return false;
    address.sin_addr.s_addr = value;
    return true;
}

bool lookUp(const std::string& host, sockaddr_in& address)
{
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0)
        return false;
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> list(found, &freeaddrinfo);
    address.sin_addr = reinterpret_cast<const sockaddr_in*>(list->ai_addr)->sin_addr;
    return true;
}

// The bytes in one of the kernel's queues of a socket; 0 if it does not say.
unsigned long bytesIn(int socket, unsigned long queue)
{
    int bytes = 0;
    return ioctl(socket, queue, &bytes) == 0 && bytes > 0 ? static_cast<unsigned long>(bytes) : 0;
}

} // namespace

DevConnTCP::DevConnTCP()
{
    std::signal(SIGPIPE, SIG_IGN);
}

DevConnTCP::~DevConnTCP()
{
    closeSocket();
}

long DevConnTCP::Connect(const char* queue, const char* port, unsigned short tcpPort)
{
    const HoldLock hold(m_lock);
    if (port == nullptr || tcpPort == 0)
        return conn::kInvalidArgument;
    if (m_connected)
        return conn::kAlreadyConnected;
    m_connecting = true;
    sockaddr_in address{};
    const bool known =
        queue == nullptr ? dottedAddress(port, address) : ResolveIpAddr(port, &address);
    address.sin_family = AF_INET;
    address.sin_port = htons(tcpPort);
    m_isUnknown = !known;
    m_connectError = 0;
    if (!known || !openSocket(address)) {
        closeSocket();
        m_connecting = false;
        return conn::kCannotOpen;
    }
    m_peerClosed = false;
    m_moreIsLikely = false;
    m_carriedFirmware = false;
    m_replyIsDue = false;
    m_connected = true;
    return conn::kSuccess;
}

ConnectProblem DevConnTCP::connectProblem(int& error)
{
    const HoldLock hold(m_lock);
    error = m_connectError;
    return m_isUnknown ? ConnectProblem::unknownHost : connectProblemOf(error);
}

bool DevConnTCP::openSocket(const sockaddr_in& address)
{
    assert(m_socket == -1); // a failed Connect leaves none
    m_socket = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (m_socket < 0) {
        m_connectError = errno;
        return false;
    }
    // A packet must leave at once: if it waited for the previous one's acknowledgement, every piece
    // of firmware would be delayed by 40 ms.
    const int on = 1;
    setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    setsockopt(m_socket, SOL_SOCKET, SO_SNDBUF, &kSendBuffer, sizeof kSendBuffer);
    if (connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return true;
    m_connectError = errno;
    if (errno != EINPROGRESS)
        return false;
    m_connectError = ETIMEDOUT;
    if (waitFor(m_socket, POLLOUT, kConnectMs) != Ready::yes)
        return false;
    socklen_t length = sizeof m_connectError;
    return getsockopt(m_socket, SOL_SOCKET, SO_ERROR, &m_connectError, &length) == 0
        && m_connectError == 0;
}

void DevConnTCP::closeSocket()
{
    if (m_socket != -1)
        close(m_socket);
    m_socket = -1;
}

bool DevConnTCP::GetIpFromPort(const char* port, sockaddr_in* address)
{
    constexpr std::string_view kScheme = "lpd://";
    if (port == nullptr || address == nullptr)
        return false;
    std::string_view text = port;
    const auto scheme = text.find(kScheme);
    if (text.size() > kLongestPortString || scheme == std::string_view::npos)
        return false;
    text.remove_prefix(scheme + kScheme.size());
    const auto slash = text.find('/');
    if (slash == std::string_view::npos)
        return false;
    *address = {};
    const std::string host(text.substr(0, slash));
    if (dottedAddress(host.c_str(), *address))
        return true;
    // The number after a colon is never the port to connect to: Connect has a parameter for that.
    const auto colon = host.find(':');
    if (colon != std::string::npos && dottedAddress(host.substr(0, colon).c_str(), *address))
        return true;
    return lookUp(host, *address);
}

bool DevConnTCP::ResolveIpAddr(const char* port, sockaddr_in* address)
{
    return port != nullptr && address != nullptr && GetIpFromPort(port, address);
}

bool DevConnTCP::GetIpFromReg(const char* /*first*/, const char* /*second*/, const char* /*third*/,
                              sockaddr_in* /*address*/)
{
    return false;
}

bool DevConnTCP::WritePort(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                           unsigned long timeoutMs)
{
    if (buffer == nullptr || sent == nullptr)
        return false;
    *sent = 0;
    return write(buffer, length, *sent, timeoutMs, tickMilliseconds() + timeoutMs);
}

bool DevConnTCP::WritePacket(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                             unsigned long timeoutMs)
{
    if (buffer == nullptr || sent == nullptr)
        return false;
    *sent = 0;
    return write(buffer, length, *sent, timeoutMs,
                 tickMilliseconds() + timeoutMs + length * 1000 / kSlowestBytesPerSecond);
}

// Writes until all bytes have left, none has left for the time-out, or the deadline has passed.
bool DevConnTCP::write(const unsigned char* buffer, unsigned long length, unsigned long& sent,
                       unsigned long timeoutMs, std::uint64_t last)
{
    m_moreIsLikely = false; // an answer takes its time
    for (auto deadline = tickMilliseconds() + timeoutMs; sent < length;) {
        const auto count = send(m_socket, buffer + sent, length - sent, MSG_NOSIGNAL);
        if (count < 0 && !wouldBlock(errno))
            return false;
        const auto now = tickMilliseconds();
        if (count > 0) {
            sent += static_cast<unsigned long>(count);
            deadline = std::min(now + timeoutMs, last);
            continue;
        }
        if (now >= deadline)
            return true;
        const auto ready = waitFor(m_socket, POLLOUT, deadline - now);
        if (ready != Ready::yes)
            return ready == Ready::timedOut;
    }
    return true;
}

bool DevConnTCP::ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                          unsigned long timeoutMs)
{
    if (buffer == nullptr || received == nullptr)
        return false;
    *received = 0;
    if (length == 0)
        return true;
    // After a header, its body is usually there already: no need to poll first.
    if (m_moreIsLikely) {
        const bool linked = receive(buffer, length, received);
        if (!linked || *received != 0 || m_peerClosed)
            return linked;
    }
    const auto ready = waitFor(m_socket, POLLIN, timeoutMs);
    if (ready != Ready::yes)
        return ready == Ready::timedOut;
    return receive(buffer, length, received);
}

// One attempt; true without bytes if none have arrived yet.
bool DevConnTCP::receive(unsigned char* buffer, unsigned long length, unsigned long* received)
{
    // Interrupted attempts do not count: one at the very end of the time would cut a reply in two,
    // and its second part would be taken for the next one's header.
    auto count = recv(m_socket, buffer, length, 0);
    while (count < 0 && errno == EINTR)
        count = recv(m_socket, buffer, length, 0);
    m_moreIsLikely = count >= 0 && static_cast<unsigned long>(count) == length;
    if (count < 0)
        return wouldBlock(errno);
    m_peerClosed = count == 0;
    *received = static_cast<unsigned long>(count);
    return true;
}

bool DevConnTCP::awaitsReply(const unsigned char* packet, unsigned long length) const
{
    return !packets::FilePacket(packet, length).isData(); // printers need not answer a piece
}

long DevConnTCP::SendRecvData(unsigned char* send, unsigned long sendLength, unsigned char** reply,
                              unsigned long* replyLength)
{
    const HoldLock hold(m_lock);
    const auto result = exchange(*this, kLeastTcpWriteMs, send, sendLength, reply, replyLength);
    if (send != nullptr && packets::FilePacket(send, sendLength).isFile())
        m_carriedFirmware = true;
    if (result == conn::kSuccess)
        m_replyIsDue = *reply == nullptr && (m_replyIsDue || send != nullptr);
    return result;
}

long DevConnTCP::GetModelName(char** /*model*/, unsigned long* /*length*/)
{
    const HoldLock hold(m_lock);
    return m_connected ? conn::kNotSupported : conn::kNotConnected;
}

long DevConnTCP::SetTimeout(unsigned long milliseconds)
{
    return storeTimeout(milliseconds);
}

long DevConnTCP::Disconnect()
{
    const HoldLock hold(m_lock);
    if (!m_connected)
        return conn::kNotConnected;
    takeLeave();
    closeSocket();
    m_connecting = false;
    m_connected = false;
    return conn::kNetworkClosed;
}

unsigned long DevConnTCP::unsentBytes() const
{
    return bytesIn(m_socket, SIOCOUTQ);
}

LinkState DevConnTCP::LookAtLink()
{
    const HoldLock hold(m_lock);
    if (!m_connected)
        return {};
    const bool arrived = !m_peerClosed && waitFor(m_socket, POLLIN, 0) == Ready::yes;
    return {unsentBytes(), arrived, m_peerClosed, bytesIn(m_socket, SIOCOUTQNSD)};
}

// Closing a socket with unread bytes, or receiving bytes after the close, resets the connection,
// and the printer loses its unread bytes. So this ends our side first, then reads and drops bytes
// until the printer has ended its own side or its time is over.
void DevConnTCP::takeLeave()
{
    const bool waits = m_carriedFirmware && (m_replyIsDue || unsentBytes() != 0);
    if (m_socket < 0 || shutdown(m_socket, SHUT_WR) != 0)
        return;
    const auto deadline = tickMilliseconds() + (waits ? m_timeout : 0);
    unsigned char dropped[4096];
    m_moreIsLikely = false;
    for (unsigned long late = 0; !m_peerClosed && late < kMostDropped;) {
        const auto now = tickMilliseconds();
        unsigned long received = 0;
        if (!ReadPort(dropped, sizeof dropped, &received, deadline > now ? deadline - now : 0)
            || (received == 0 && tickMilliseconds() >= deadline))
            break;
        late += now >= deadline ? received : 0;
    }
}
