// A printer that plays a recorded conversation: it expects the updater's packets byte for byte and
// answers each as the recorded printer did, after as long a time.
//
// Owns:      the conversation and what has arrived of it.
// Threads:   one.
// Invariant: once it differs(), nothing more is expected or sent.
// Does no I/O and reads no clock: the time is what its caller says.
#pragma once
#include "Tools/vymprinter/SessionText.h"

#include <optional>

namespace vymprinter {

class Replay {
public:
    explicit Replay(std::vector<SessionLine> lines) : m_lines(std::move(lines)) { }

    void receive(ByteView bytes, Millis now);
    // The updater will send nothing more.
    void inputEnded();
    // When the next packet of the printer leaves; none while the updater is to speak.
    [[nodiscard]] std::optional<Millis> nextDue() const;
    // That packet, which then counts as sent; called when it is due.
    [[nodiscard]] Bytes takeDue(Millis now);

    // How the conversation went another way than the recorded one; empty while it has not.
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
