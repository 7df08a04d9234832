// SPDX-License-Identifier: MIT
// The peer of the data path benchmark, seen from its senders: a process that answers on loopback.
//
// Owns:      the process, which ends with the object.
// Threads:   one.
// Invariant: once constructed, the process accepts connections, one at a time.
#pragma once
#include <cstdint>
#include <sys/types.h>

// Reported by the peer to an updater; a sender that asks for nothing counts on them.
constexpr unsigned kMaxPacket = 65536;
constexpr unsigned kReplySize = 12; // of an acknowledgement

class Peer {
public:
    Peer();
    ~Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    [[nodiscard]] std::uint16_t port() const { return m_port; }

private:
    std::uint16_t m_port = 0;
    pid_t m_process = -1;
};
