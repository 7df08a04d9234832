// SPDX-License-Identifier: MIT
// Waits in a test for another thread or process, however busy the computer is.
//
// Threads: any.
#pragma once
#include <chrono>
#include <thread>

// Returns true as soon as the condition is true; false if it is not within the limit, which only a
// failing test reaches.
template <class Condition>
bool becomesTrue(Condition condition, std::chrono::seconds limit = std::chrono::minutes(1))
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
