// SPDX-License-Identifier: MIT
// Runs the package maker, or a line of the shell, as a process.
//
// Threads: one.
#pragma once
#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace vympack_test {

struct Ended {
    int code;
    std::string output; // both streams, unless the line redirects one
};

inline Ended shell(const std::string& line)
{
    auto* pipe = ::popen(("exec 2>&1; " + line).c_str(), "r");
    if (pipe == nullptr)
        return {-1, "the program cannot be run"};
    Ended outcome{-1, {}};
    std::array<char, 4096> piece{};
    while (const auto got = std::fread(piece.data(), 1, piece.size(), pipe))
        outcome.output.append(piece.data(), got);
    const auto status = ::pclose(pipe);
    outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

inline Ended run(const std::string& arguments)
{
    return shell(std::string(VYMPACK_PROGRAM) + " " + arguments);
}

} // namespace vympack_test
