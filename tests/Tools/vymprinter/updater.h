// SPDX-License-Identifier: MIT
// A hand-written updater on a blocking socket, for the tests that talk to a real printer.
//
// Owns:      its socket.
// Threads:   one.
// Invariant: no wait is longer than kPatience.
#pragma once
#include "Tools/vymprinter/TcpListen.h"
#include "tests/Tools/vymprinter/requests.h"

#include <arpa/inet.h>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

class Updater {
public:
    static constexpr int kPatience = 60000; // ms; only a failing test waits that long

    explicit Updater(const vymprinter::Endpoint& printer)
        : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(printer.port);
        address.sin_addr.s_addr = htonl(printer.address);
        m_connected =
            ::connect(m_socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address)
            == 0;
    }

    [[nodiscard]] bool connected() const { return m_connected; }

    void send(const requests::Packet& bytes) const
    {
        for (std::size_t at = 0; at < bytes.size();) {
            const auto sent =
                ::send(m_socket.get(), bytes.data() + at, bytes.size() - at, MSG_NOSIGNAL);
            if (sent < 0)
                return;
            at += static_cast<std::size_t>(sent);
        }
    }
    void sendNoMore() const { ::shutdown(m_socket.get(), SHUT_WR); }

    // One framed reply; shorter if the connection or kPatience ends.
    requests::Packet reply()
    {
        auto packet = receive(8);
        if (packet.size() < 8)
            return packet;
        const auto length = static_cast<std::size_t>(packet[4]) << 24
            | static_cast<std::size_t>(packet[5]) << 16 | static_cast<std::size_t>(packet[6]) << 8
            | packet[7];
        const auto body = receive(length);
        packet.insert(packet.end(), body.begin(), body.end());
        return packet;
    }
    requests::Packet ask(const requests::Packet& request)
    {
        send(request);
        return reply();
    }
    int status(const requests::Packet& request)
    {
        const auto packet = ask(request);
        return packet.size() < 12 ? -1 : packet[10] << 8 | packet[11];
    }

    // Reads that many bytes; fewer if the connection or kPatience ends.
    requests::Packet receive(std::size_t count)
    {
        requests::Packet bytes;
        while (bytes.size() < count && readable(kPatience)) {
            std::uint8_t buffer[4096];
            const auto room = std::min(sizeof buffer, count - bytes.size());
            const auto got = ::recv(m_socket.get(), buffer, room, 0);
            m_error = got < 0 ? errno : 0;
            m_ended = got <= 0;
            if (m_ended)
                break;
            bytes.insert(bytes.end(), buffer, buffer + got);
        }
        return bytes;
    }
    bool readable(int milliseconds) const
    {
        pollfd entry{m_socket.get(), POLLIN, 0};
        return ::poll(&entry, 1, milliseconds) == 1;
    }
    // How the printer ended the connection: cleanly (0), or with an error number.
    int endedWith()
    {
        while (!m_ended && !receive(4096).empty()) { }
        return m_ended ? m_error : -1;
    }

private:
    vymprinter::FileHandle m_socket;
    bool m_connected = false;
    bool m_ended = false;
    int m_error = 0;
};
