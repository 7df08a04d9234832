// Keeps the computer from sleeping and from being shut down while it lives, as far as the system
// has somebody to ask and that one agrees. Nobody has to agree: an update runs all the same.
//
// Owns:    what the system gave for it; given back at the end of its life.
// Threads: one at a time.
// Errors:  none; note() says what is held or why nothing is. Building one takes a second at most,
//          whatever the system does.
#pragma once
#include <array>
#include <string>

class SleepInhibitor {
public:
    // who and why: short texts that the system shows to whoever wants to shut it down.
    SleepInhibitor(const char* who, const char* why);
    ~SleepInhibitor();
    SleepInhibitor(const SleepInhibitor&) = delete;
    SleepInhibitor& operator=(const SleepInhibitor&) = delete;

    [[nodiscard]] bool holds() const { return m_locks.front() >= 0; }
    // For a log: one line, in English. May hold text from the system.
    [[nodiscard]] const std::string& note() const { return m_note; }

private:
    void add(int lock);

    std::array<int, 2> m_locks{-1, -1}; // descriptors, taken ones first
    std::string m_note;
};
