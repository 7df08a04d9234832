// What really goes over the bus, as the kernel's USB monitor sees it, from the object's begin to
// stop().
//
// Owns:      the monitor's file and the thread that reads it.
// Threads:   the list is the caller's once stop() has returned.
#pragma once
#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>
#include <vector>

struct BusEvent {
    enum class Kind : char { submitted = 'S', completed = 'C', failed = 'E' };

    Kind kind;
    bool bulk; // control otherwise; nothing else is kept
    bool in; // towards the computer
    std::chrono::microseconds at;
    std::uint64_t transfer; // the same for its begin and its end
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
