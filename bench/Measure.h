// SPDX-License-Identifier: MIT
// Helpers of every benchmark: measure how long some work took, and exit with a reason when a
// precondition fails.
//
// Threads: any.
#pragma once
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>

template <class Work> double secondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, what);
    std::exit(1);
}
