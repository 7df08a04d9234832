// The signals that ask a program to end or to halt (from the keys Ctrl-C, Ctrl-\ and Ctrl-Z, say),
// as something to wait for: while this lives none of them ends or halts the process by itself, so
// none can cut a transfer. A closed pipe is an error of one write.
//
// Owns:    a descriptor, and the process's signal mask while it lives.
// Threads: built before any other thread, which so inherits the mask; then used by one.
// Decides nothing: whoever waits says what a signal means.
#pragma once
#include <csignal>

class EndingSignals {
public:
    EndingSignals();
    ~EndingSignals(); // what came and was not taken is forgotten
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

    // Readable while a signal waits; negative where there can be none, and signals end the process.
    [[nodiscard]] int descriptor() const { return m_descriptor; }
    int take() const; // all that wait; gives the last one's number, 0 where none waits

private:
    sigset_t m_formerMask{};
    int m_descriptor = -1;
};
