// SPDX-License-Identifier: MIT
// The signals that end or halt a program (from the keys Ctrl-C, Ctrl-\ and Ctrl-Z, for example), as
// a descriptor to wait for: while this lives, none of them ends or halts the process by itself, so
// none can cut a transfer. A closed pipe and a file that
// would become too large are errors of one write.
//
// Owns:    a descriptor, and the process's signal mask while it lives.
// Threads: constructed before other threads start, so that they inherit the mask; then used by one.
// Decides nothing: the caller that waits decides what a signal means.
#pragma once
#include <csignal>

class EndingSignals {
public:
    EndingSignals();
    ~EndingSignals(); // drops signals that were not taken
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

    // Readable while a signal is pending; negative if it could not be made: signals then end the
    // process.
    [[nodiscard]] int descriptor() const { return m_descriptor; }
    int take() const; // takes all pending ones; returns the last one's number, or 0

private:
    sigset_t m_formerMask{};
    int m_descriptor = -1;
};
