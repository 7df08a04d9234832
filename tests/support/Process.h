// SPDX-License-Identifier: MIT
// Runs one of our programs: keeps its output, sends it signals, and never waits for it without a
// limit. The destructor kills a program that is still running.
#pragma once
#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

class Process {
public:
    using Environment = std::vector<std::string>; // NAME=VALUE, in addition to this process's
    explicit Process(std::vector<std::string> command, const Environment& environment = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] pid_t pid() const { return m_pid; }
    void signal(int number) const;
    // The exit code, or 128 plus the number of the signal that ended it; -1 if it still runs after
    // the limit.
    int wait(std::chrono::seconds limit = std::chrono::seconds(200));
    // Waits until standard output (or error) contains the text; false if the limit passes or the
    // program ends without it.
    bool waitForOutput(const std::string& text, std::chrono::seconds limit);
    bool waitForErrors(const std::string& text, std::chrono::seconds limit);

    // Complete once wait has returned; until then the output so far.
    [[nodiscard]] std::string out() const;
    [[nodiscard]] std::string errors() const;

private:
    bool finished();
    bool waitFor(const std::string& path, const std::string& text, std::chrono::seconds limit);

    std::string m_folder;
    pid_t m_pid = -1;
    int m_exitCode = -1;
    bool m_ended = false;
};
