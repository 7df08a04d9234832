// SPDX-License-Identifier: MIT
// A printer that costs next to nothing: reads packets from a connection and answers each at once,
// so that a benchmark of the sender measures the sender. Standard input is the listening socket.
// Looks only at the header of a packet.
#include "bench/Peer.h"

#include <cstdio>
#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::size_t kHeaderSize = 8;
constexpr unsigned kGetFile = 0x5001;
constexpr unsigned kAccepted = 0x80;

std::uint32_t bigEndian(const char* bytes, int count)
{
    std::uint32_t value = 0;
    for (int i = 0; i < count; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

std::string number(std::uint32_t value, int count)
{
    std::string text;
    while (count-- > 0)
        text += static_cast<char>(value >> (8 * count) & 0xFF);
    return text;
}

std::string reply(std::uint32_t code, const std::string& rest)
{
    const auto body = number(0, 2) + number(kAccepted, 2) + rest;
    return number(0, 2) + number(code, 2) + number(static_cast<std::uint32_t>(body.size()), 4)
        + body;
}

// The printer's own description, in a single block, which is therefore the last.
std::string targetInfo()
{
    const auto text = "TGMNAME BENCH\r\nVERSION MAIN=AB010100\r\nMAXPACKET "
        + std::to_string(kMaxPacket) + "\r\n";
    const auto size = static_cast<std::uint32_t>(text.size());
    std::uint32_t sum = 0;
    for (const char c : text)
        sum += static_cast<unsigned char>(c);
    return reply(kGetFile,
                 number(0, 4) + number(size, 4) + number(sum, 2) + number(0, 2) + number(size, 4)
                     + text);
}

bool receive(int connection, char* buffer, std::size_t length)
{
    return recv(connection, buffer, length, MSG_WAITALL) == static_cast<ssize_t>(length);
}

void serve(int connection)
{
    static char body[kMaxPacket];
    const auto info = targetInfo();
    char header[kHeaderSize];
    while (receive(connection, header, kHeaderSize)) {
        for (auto left = bigEndian(header + 4, 4); left > 0;) {
            const auto count = recv(connection, body, left < sizeof body ? left : sizeof body, 0);
            if (count <= 0)
                return;
            left -= static_cast<std::uint32_t>(count);
        }
        const auto code = bigEndian(header + 2, 2);
        const auto answer = code == kGetFile ? info : reply(code, {});
        if (send(connection, answer.data(), answer.size(), MSG_NOSIGNAL) < 0)
            return;
    }
}

} // namespace

int main()
{
    for (;;) {
        const int connection = accept(STDIN_FILENO, nullptr, nullptr);
        if (connection < 0)
            return 1;
        const int on = 1;
        setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        serve(connection);
        close(connection);
    }
}
