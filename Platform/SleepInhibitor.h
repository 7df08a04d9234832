// SPDX-License-Identifier: MIT
// Keeps the computer from sleeping and shutting down while it lives, if the system's login manager
// agrees. An update runs without its consent, too.
//
// Owns:    the system's locks; the destructor gives them back.
// Threads: one at a time.
// Errors:  none; note() says which locks are held, or why there are none. Construction takes at
//          most a second, whatever the system does.
#pragma once
#include <array>
#include <string>

class SleepInhibitor {
public:
    // who and why: short texts that the system shows to a user who wants to shut it down.
    SleepInhibitor(const char* who, const char* why);
    ~SleepInhibitor();
    SleepInhibitor(const SleepInhibitor&) = delete;
    SleepInhibitor& operator=(const SleepInhibitor&) = delete;

    [[nodiscard]] bool holds() const { return m_locks.front() >= 0; }
    // For a log: one line, in English. May hold text from the system.
    [[nodiscard]] const std::string& note() const { return m_note; }

private:
    void add(int lock); // at most as many as there are places

    std::array<int, 2> m_locks{-1, -1}; // descriptors; -1 for no lock, held ones first
    std::string m_note;
};
