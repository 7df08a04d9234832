// SPDX-License-Identifier: MIT
// Time and all events, in one thread: the product runs until it waits, and during its wait the due
// events happen. Link, printer and desk are events; no system decides anything that could differ
// the next time.
//
// Owns:      the clock, the pending events, the trace.
// Threads:   one.
// Invariant: events happen in the order of their times, events of the same time in the order of
//            their creation; the clock never goes back.
#pragma once
#include "VYM/vymMac.h"

#include <cstdint>
#include <functional>
#include <queue>
#include <string>
#include <vector>

namespace sim {

using Micros = std::uint64_t;
constexpr Micros kMilli = 1000;
constexpr Micros kSecond = 1000 * kMilli;
constexpr Micros kForever = ~Micros{0};

class World : public TimeSource {
public:
    explicit World(bool traced);
    ~World() override;
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    static World& current();
    static bool exists();

    [[nodiscard]] std::uint64_t nowMilliseconds() const override;
    void sleepMilliseconds(unsigned long milliseconds) override;
    [[nodiscard]] unsigned long waitLimit(unsigned long milliseconds) const override;

    [[nodiscard]] Micros now() const { return m_now; }
    void at(Micros when, std::function<void()> what);
    void in(Micros delay, std::function<void()> what) { at(m_now + delay, std::move(what)); }
    // Lets time pass until ready or the deadline; true if ready. If neither ever comes, the run
    // hangs: the process reports that and ends.
    bool waitUntil(Micros deadline, const std::function<bool()>& ready);
    // Lets a call of the product take its time.
    void spend(Micros moment);
    // The product yields the processor: the next event happens.
    void yield();
    // Lets all pending events happen, up to this much later.
    void settle(Micros longest);
    // Sets the length of the next wait for an event.
    [[nodiscard]] unsigned long eventWait() const { return m_eventWait; }

    [[nodiscard]] bool traced() const { return m_traced; }
    void trace(const char* format, ...) __attribute__((format(printf, 2, 3)));
    [[nodiscard]] const std::string& traceText() const { return m_trace; }

private:
    struct Event {
        Micros when;
        std::uint64_t number;
        std::function<void()> what;
        bool operator>(const Event& other) const
        {
            return when != other.when ? when > other.when : number > other.number;
        }
    };
    void takePlace();
    [[noreturn]] void hung(const char* how) const;

    Micros m_now = 0;
    std::uint64_t m_number = 0;
    std::uint64_t m_calls = 0;
    std::priority_queue<Event, std::vector<Event>, std::greater<>> m_events;
    mutable unsigned long m_eventWait = 0;
    bool m_traced;
    std::string m_trace;
};

// The current seed, for code that ends the process.
extern std::uint64_t g_seed;

} // namespace sim
