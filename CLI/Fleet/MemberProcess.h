// SPDX-License-Identifier: MIT
// One printer's own process: started with a pipe for its output lines, stopped by a signal as a
// person would, and collected when it has ended. It outlives this object if it has to.
//
// Owns:    the pipe's reading end, and the duty to collect the process.
// Threads: one. Only finish waits, for a process that has closed its output.
#pragma once
#include <string>
#include <sys/types.h>
#include <vector>

class MemberProcess {
public:
    MemberProcess() = default;
    ~MemberProcess();
    MemberProcess(MemberProcess&& other) noexcept;
    MemberProcess& operator=(MemberProcess&&) = delete;
    MemberProcess(const MemberProcess&) = delete;
    MemberProcess& operator=(const MemberProcess&) = delete;

    // Call once. program: its file; words: its arguments with its name first; variable: NAME=VALUE,
    // which is added to the environment. Returns why it could not be started, or an empty text.
    std::string start(const std::string& program, const std::vector<std::string>& words,
                      const std::string& variable);
    [[nodiscard]] int descriptor() const { return m_descriptor; } // readable: lines, or the end
    // Reads what is there; returns the whole lines, without their ends. Only once it was started.
    std::vector<std::string> lines();
    [[nodiscard]] bool isAtEnd() const { return m_isAtEnd; }
    void stop() const; // as Ctrl-C does
    std::string finish(); // how it ended, if that was not by itself: "signal 11", or an empty text

private:
    pid_t m_pid = -1;
    int m_descriptor = -1;
    bool m_isAtEnd = false;
    std::string m_partLine;
};
