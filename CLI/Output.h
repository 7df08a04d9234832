// SPDX-License-Identifier: MIT
// An output stream that never blocks its program: texts for a slow reader wait in memory; after a
// reader has gone or a disk is full, it silently writes no more.
//
// Owns:      the waiting texts; the caller owns the descriptor.
// Threads:   one at a time.
// Invariant: only drain waits, and only while its reader still takes something.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

class Output {
public:
    // The most bytes that wait for a slow reader; further progress texts are dropped.
    static constexpr std::size_t kBacklogLimit = 1024UL * 1024;

    explicit Output(int descriptor) : m_descriptor(descriptor), m_broken(descriptor < 0) { }

    void write(std::string_view text); // kept, however much is waiting
    void writeProgress(std::string_view text); // dropped if too much is waiting
    void drain(); // writes the waiting texts, before the program ends
    // Writes the waiting texts and then this one, without any further memory.
    void writeLast(std::string_view text);

private:
    bool flush(int waitMilliseconds); // false if the reader took nothing
    struct Given {
        std::size_t bytes; // that left
        bool goesOn; // more may leave at once
    };
    Given give(std::string_view text, int waitMilliseconds);

    int m_descriptor;
    bool m_broken; // writes no more
    std::string m_waiting;
};
