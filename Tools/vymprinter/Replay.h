// SPDX-License-Identifier: MIT
// A printer that plays a recorded conversation: it expects the updater's packets byte for byte, and
// sends the recorded answers after the recorded times.
//
// Owns:      the conversation and its bytes that have arrived.
// Threads:   one.
// Invariant: once it differs(), it expects and sends no more.
// Does no I/O and reads no clock: the caller gives the time.
#pragma once
#include "Tools/vymprinter/SessionText.h"

#include <optional>

namespace vymprinter {

class Replay {
public:
    explicit Replay(std::vector<SessionLine> lines) : m_lines(std::move(lines)) { }

    void receive(ByteView bytes, Millis now);
    // The updater will send no more bytes.
    void inputEnded();
    // The time at which the printer's next packet leaves; empty while it is the updater's turn.
    [[nodiscard]] std::optional<Millis> nextDue() const;
    // That packet, which then counts as sent; call when it is due.
    [[nodiscard]] Bytes takeDue(Millis now);

    // The difference from the recorded conversation; empty if there is none so far.
    [[nodiscard]] const std::string& differs() const { return m_differs; }
    [[nodiscard]] bool finished() const { return m_next == m_lines.size(); }

private:
    [[nodiscard]] bool isUpdatersTurn() const;
    void compare(Millis now);
    void pass(Millis now);

    std::vector<SessionLine> m_lines;
    std::size_t m_next = 0;
    Bytes m_arrived;
    Millis m_passedAt{0}; // when the line before m_next was passed
    std::string m_differs;
};

} // namespace vymprinter
