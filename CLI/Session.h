// The one place where the program waits: for the next look at a run, for a signal, for the limit
// of its time, for an answer. Signals that ask the program to end are only noticed here, so none
// of them can cut a transfer.
//
// Owns:      a descriptor, and the process's signals while it lives.
// Threads:   built before any other thread, which so inherits the mask; one thread waits, any
//            thread may call notify.
// Invariant: the limit of time is reported once.
#pragma once
#include "Platform/EndingSignals.h"

#include <cstdint>
#include <optional>
#include <string>

enum class Wake : std::uint8_t { tick, signal, deadline, notified, readable };

class Session {
public:
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void setDeadline(double seconds); // counted from the session's start
    [[nodiscard]] double seconds() const; // since the session's start
    // Waits for one interval between two looks at a run, or until something happens.
    Wake wait() { return waitFor(-1, waitMilliseconds()); }
    // A signal or the limit of time that is there already, without waiting: another value for none.
    Wake check() { return waitFor(-1, 0); }
    // Reads one line, without its end; what arrived of it when the stream ends. No line when a
    // signal or the limit of time came first.
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
