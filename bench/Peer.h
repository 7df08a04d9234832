// The peer of the data path benchmark as its senders see it: a process that answers on loopback.
//
// Owns:      the process, which ends with the object.
// Threads:   one.
// Invariant: the process accepts connections, one after the other, from construction on.
#pragma once
#include <cstdint>
#include <sys/types.h>

// What a peer tells an updater, and what its senders have to agree with.
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
