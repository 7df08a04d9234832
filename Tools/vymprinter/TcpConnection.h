// One updater's TCP connection: moves bytes between the socket and the session behind it.
//
// Owns:      the socket and the session.
// Threads:   one, the server's.
// Invariant: once over(), the socket is not touched again until it is closed.
// Does not understand a byte of what it moves.
#pragma once
#include "Tools/vymprinter/PrinterSession.h"
#include "Tools/vymprinter/TcpListen.h"

namespace vymprinter {

class TcpConnection {
public:
    TcpConnection(FileHandle socket, Printer& printer, Millis now);

    [[nodiscard]] int socket() const { return m_socket.get(); }
    // What to poll the socket for.
    [[nodiscard]] short events() const;
    // Moves what can be moved, given what poll said.
    void serve(short ready, Millis now);
    // When there is something to do though the socket stays quiet.
    [[nodiscard]] std::optional<Millis> nextDue() const;
    [[nodiscard]] bool over() const { return m_over; }

private:
    void readSome();
    void writeDue(Millis now);
    void endLink(LinkEnd how);

    FileHandle m_socket;
    PrinterSession m_session;
    bool m_sendBlocked = false; // the socket takes no more for now
    bool m_peerDone = false; // it has sent its last byte
    bool m_over = false;
};

} // namespace vymprinter
