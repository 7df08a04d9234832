// SPDX-License-Identifier: MIT
// The least that a sender of firmware must do: for each piece, one read from the container and its
// byte sum, then poll, send, poll, recv. One buffer, no copies, no time-out, no lock.
//
// Owns:    the packet buffer and the socket.
// Threads: one.
// Checks only the length of an answer.
#pragma once
#include <cstdint>
#include <vector>

class BareLoop {
public:
    // size bytes of firmware, starting at an offset in the open container.
    BareLoop(std::uint64_t place, std::uint32_t size);
    ~BareLoop();
    BareLoop(const BareLoop&) = delete;
    BareLoop& operator=(const BareLoop&) = delete;

    bool connect(std::uint16_t port);
    // Sends all of it over the connection, then closes that.
    bool run();

private:
    bool sendPiece(std::vector<unsigned char>& packet, std::uint32_t start);
    [[nodiscard]] bool sendAll(const unsigned char* packet, std::size_t length) const;
    [[nodiscard]] bool acknowledged() const;

    std::vector<std::vector<unsigned char>> m_packets; // complete except for their heads
    std::uint32_t m_size;
    std::uint16_t m_sum = 0; // of all pieces; every sender has to keep it
    int m_socket = -1;
};
