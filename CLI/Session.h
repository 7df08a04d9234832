// SPDX-License-Identifier: MIT
// The only place where the program waits: for the next look at a run, for a signal, for its time
// limit, for an answer. Ending signals are only noticed here, so none of them can cut a transfer.
//
// Owns:      a descriptor, and the process's signals while it lives.
// Threads:   constructed before other threads start, so that they inherit the mask; one thread
//            waits, any thread may call notify.
// Invariant: the time limit is reported once.
#pragma once
#include "Platform/EndingSignals.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

// The time that a run or check gets for leaving the printer politely after a stop request, in
// seconds: the command then ends within two.
constexpr double kLeavingGrace = 1.5;

enum class Wake : std::uint8_t { tick, signal, deadline, notified, readable };

class Session {
public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void setDeadline(double seconds); // counted from the session's start; not negative
    [[nodiscard]] double seconds() const; // since the session's start
    // Waits for one interval between two looks at a run, or until something happens; at most until
    // a moment in seconds since the session's start.
    Wake wait(double until = std::numeric_limits<double>::infinity());
    // Checks for a signal or the time limit without waiting; returns another value without either.
    Wake check() { return waitFor(-1, 0); }
    // The same, and until there is something to read from this descriptor.
    Wake waitReadable(int descriptor) { return waitFor(descriptor, waitMilliseconds()); }
    // Reads one line, without its end; if the stream ends, the part that arrived. No value if a
    // signal or the time limit comes first.
    std::optional<std::string> readLine(int descriptor);
    void notify() const;
    [[nodiscard]] bool isOverdue() const { return m_overdue; }

private:
    Wake waitFor(int readable, int milliseconds);
    [[nodiscard]] int waitMilliseconds() const;
    bool takeDeadline();

    const std::uint64_t m_start;
    std::optional<std::uint64_t> m_deadline; // on the clock of m_start
    bool m_overdue = false;
    EndingSignals m_signals;
    int m_notified;
};
