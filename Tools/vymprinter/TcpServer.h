// SPDX-License-Identifier: MIT
// Serves any number of printers over TCP on one thread: a poll loop over their listening sockets
// and connections.
//
// Owns:      the sockets and the printers; the caller owns the records, which outlive it.
// Threads:   one; run() blocks the caller's.
// Invariant: a connection's printer lives as long as the connection.
#pragma once
#include "Tools/vymprinter/TcpConnection.h"

#include <list>
#include <memory>

struct pollfd;

namespace vymprinter {

class TcpServer {
public:
    // Adds a printer that answers on a listening socket, which must be valid; window: as in
    // listenOn, for the socket after a restart.
    void add(Listening listening, Printer printer, int window = 0);
    // Serves until `stop` becomes readable, or until that many connections have ended (0: no
    // limit).
    void run(int stop, std::uint64_t sessions = 0);

private:
    struct Desk {
        FileHandle socket; // invalid while the printer restarts
        Endpoint endpoint;
        int window = 0;
        std::unique_ptr<Printer> printer; // sessions keep a reference
    };

    [[nodiscard]] std::vector<pollfd> pollList(int stop) const;
    [[nodiscard]] int waitTime(Millis now) const;
    void serveRound(const std::vector<pollfd>& ready, Millis now);
    void accept(Desk& desk, Millis now);
    static void switchOffOrOn(Desk& desk, Millis now);
    [[nodiscard]] std::uint64_t dropEnded();

    std::vector<Desk> m_desks;
    std::list<TcpConnection> m_connections;
    Millis m_acceptAgain{0}; // accepts no connection before that
};

} // namespace vymprinter
