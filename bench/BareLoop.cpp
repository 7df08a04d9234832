// SPDX-License-Identifier: MIT
#include "bench/BareLoop.h"

#include "VYM/vymBindInfo.h"
#include "VYM/vymPackets.h"
#include "bench/Peer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstring>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::uint32_t kHead = sizeof(TAG_CMDSENDFILE);
constexpr int kForever = -1;

bool waitFor(int socket, short events)
{
    pollfd entry{socket, events, 0};
    return poll(&entry, 1, kForever) == 1;
}

} // namespace

BareLoop::BareLoop(std::uint64_t place, std::uint32_t size) : m_size(size)
{
    const auto* container = vymBindInfo::Instance();
    for (std::uint32_t start = 0; start < size; start += kMaxPacket - kHead) {
        const auto length = std::min(size - start, kMaxPacket - kHead);
        m_packets.emplace_back(kHead + length);
        if (!container->readBytes(place + start, m_packets.back().data() + kHead, length))
            m_packets.back().clear();
    }
}

BareLoop::~BareLoop()
{
    if (m_socket >= 0)
        close(m_socket);
}

bool BareLoop::connect(std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    m_socket = socket(AF_INET, SOCK_STREAM, 0);
    const int on = 1;
    return m_socket >= 0 && setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on) == 0
        && ::connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool BareLoop::sendAll(const unsigned char* packet, std::size_t length) const
{
    while (length > 0) {
        if (!waitFor(m_socket, POLLOUT))
            return false;
        const auto count = send(m_socket, packet, length, MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        packet += count;
        length -= static_cast<std::size_t>(count);
    }
    return true;
}

bool BareLoop::acknowledged() const
{
    char answer[kReplySize];
    return waitFor(m_socket, POLLIN)
        && recv(m_socket, answer, sizeof answer, 0) == static_cast<ssize_t>(sizeof answer);
}

bool BareLoop::sendPiece(std::vector<unsigned char>& packet, std::uint32_t start)
{
    auto* data = packet.data() + kHead;
    const auto length = static_cast<std::uint32_t>(packet.size()) - kHead;
    const auto head = packets::sendFile("MAINFW", {packets::kData, start, m_size, data, length});
    std::memcpy(packet.data(), &head, kHead);
    m_sum = static_cast<std::uint16_t>(m_sum + readBigEndian16(head.m_checkSum.bytes));
    return sendAll(packet.data(), packet.size()) && acknowledged();
}

bool BareLoop::run()
{
    m_sum = 0;
    std::uint32_t start = 0;
    for (auto& packet : m_packets) {
        if (packet.size() <= kHead || !sendPiece(packet, start))
            return false;
        start += static_cast<std::uint32_t>(packet.size()) - kHead;
    }
    close(m_socket);
    m_socket = -1;
    return true;
}
