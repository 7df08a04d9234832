// A program of ours, run for real: its output kept, signals sent, and never waited for without a
// limit. Killed when the object goes and the program is still there.
#pragma once
#include <chrono>
#include <string>
#include <sys/types.h>
#include <vector>

class Process {
public:
    using Environment = std::vector<std::string>; // NAME=VALUE, beside what is there
    explicit Process(std::vector<std::string> command, const Environment& environment = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void signal(int number) const;
    // The exit code, 128 and the signal's number where one ended it; -1 when it still runs after
    // the limit.
    int wait(std::chrono::seconds limit = std::chrono::seconds(60));
    // Waits until standard output (or error) holds the text; false when the limit passes or the
    // program ends without it.
    bool waitForOutput(const std::string& text, std::chrono::seconds limit);
    bool waitForErrors(const std::string& text, std::chrono::seconds limit);

    // All of it once wait has returned, what has come so far before.
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
