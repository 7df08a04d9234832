// SPDX-License-Identifier: MIT
// One updater's TCP connection: moves bytes between the socket and its session.
//
// Owns:      the socket and the session.
// Threads:   one, the server's.
// Invariant: once over(), the socket is only closed.
// Does not interpret the bytes.
#pragma once
#include "Tools/vymprinter/PrinterSession.h"
#include "Tools/vymprinter/TcpListen.h"

namespace vymprinter {

class TcpConnection {
public:
    TcpConnection(FileHandle socket, Printer& printer, Millis now);

    [[nodiscard]] int socket() const { return m_socket.get(); }
    // The poll events to wait for.
    [[nodiscard]] short events() const;
    // Moves as many bytes as poll's result allows. Must not be called once over().
    void serve(short ready, Millis now);
    // The time of the next work if the socket stays quiet.
    [[nodiscard]] std::optional<Millis> nextDue() const;
    [[nodiscard]] bool over() const { return m_over; }

private:
    void readSome(Millis now);
    void writeDue(Millis now);
    void endLink(LinkEnd how);

    FileHandle m_socket;
    PrinterSession m_session;
    SessionRecorder* m_recorder; // null if this connection is not recorded
    bool m_sendBlocked = false; // the socket accepts no more for now
    bool m_peerDone = false; // it has sent its last byte
    bool m_over = false;
};

} // namespace vymprinter
