// SPDX-License-Identifier: MIT
// Records the traffic on the bus, as seen by the kernel's USB monitor, from construction to stop().
//
// Owns:      the monitor's file and the thread that reads it.
// Threads:   the caller may use the list after stop() has returned.
#pragma once
#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

struct BusEvent {
    enum class Kind : char { submitted = 'S', completed = 'C', failed = 'E' };

    Kind kind;
    bool bulk; // otherwise control; no other kinds are kept
    bool in; // to the computer
    std::chrono::microseconds at;
    std::uint64_t transfer; // the same for a transfer's begin and end
    int status;
    std::uint32_t length;
    std::vector<unsigned char> bytes;
};

class BusTrace {
public:
    BusTrace();
    ~BusTrace() { stop(); }
    BusTrace(const BusTrace&) = delete;
    BusTrace& operator=(const BusTrace&) = delete;

    const std::vector<BusEvent>& stop();

private:
    void run();
    void readOne();

    int m_file = -1;
    std::atomic<bool> m_stopping{false};
    std::vector<BusEvent> m_events;
    std::thread m_reader;
};
