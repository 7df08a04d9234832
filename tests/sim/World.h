// Time and everything that happens in it, in one thread: the product runs until it waits, and while
// it waits, what is due takes place. Link, printer and desk are events; nothing is left to a system
// that could do it differently the next time.
//
// Owns:      the clock, the events that have not taken place, the trace.
// Threads:   one.
// Invariant: events take place in the order of their times, those of one time in that of their
//            making; the clock never goes back.
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

    [[nodiscard]] std::uint64_t nowMilliseconds() const override;
    void sleepMilliseconds(unsigned long milliseconds) override;
    [[nodiscard]] unsigned long waitLimit(unsigned long milliseconds) const override;

    [[nodiscard]] Micros now() const { return m_now; }
    void at(Micros when, std::function<void()> what);
    void in(Micros delay, std::function<void()> what) { at(m_now + delay, std::move(what)); }
    // Lets time pass until ready or the deadline; true when ready. Without either ever coming, the
    // run hangs: the process says so and ends.
    bool waitUntil(Micros deadline, const std::function<bool()>& ready);
    // A call of the product takes its moment.
    void spend(Micros moment);
    // The product offers the processor: the next event takes place.
    void yield();
    // Everything that is still to happen, at most so much later.
    void settle(Micros longest);
    // How long the wait for an event is to take that comes next.
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

// The seed that is being run, for whoever ends the process.
extern std::uint64_t g_seed;

} // namespace sim
