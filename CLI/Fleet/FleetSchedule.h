// SPDX-License-Identifier: MIT
// Decides which printer of a fleet starts next: so many at a time, the first few alone, and none
// after too many failures or a stop. Knows only numbers, no processes.
//
// Owns:      its counts.
// Threads:   one.
// Invariant: running() <= jobs; started() == running() + ended().
#pragma once
#include <cassert>
#include <cstddef>
#include <optional>

struct FleetLimits {
    std::size_t jobs = 1; // at least 1
    std::size_t canary = 0; // 0: no printer is first alone
    std::size_t maxFailures = 0; // 0: no limit
};

class FleetSchedule {
public:
    FleetSchedule(std::size_t count, const FleetLimits& limits) : m_count(count), m_limits(limits)
    {
        assert(limits.jobs != 0);
    }

    // The index of the printer to start now; empty if none may start at the moment.
    std::optional<std::size_t> take();
    void ended(bool well); // one of the running printers; only while one runs
    void stop() { m_isStopped = true; } // nothing starts any more

    // Nothing runs, and nothing will.
    [[nodiscard]] bool isOver() const { return running() == 0 && !mayStart(); }
    [[nodiscard]] std::size_t running() const { return m_started - m_ended; }
    [[nodiscard]] std::size_t started() const { return m_started; }
    [[nodiscard]] bool isCanaryBad() const { return m_canaryFailures != 0; }
    [[nodiscard]] bool hasTooManyFailures() const
    {
        return m_limits.maxFailures != 0 && m_failures >= m_limits.maxFailures;
    }

private:
    [[nodiscard]] bool mayStart() const;
    [[nodiscard]] bool isCanaryRunning() const { return m_ended < m_limits.canary; }

    const std::size_t m_count;
    const FleetLimits m_limits;
    std::size_t m_started = 0;
    std::size_t m_ended = 0;
    std::size_t m_failures = 0;
    std::size_t m_canaryFailures = 0;
    bool m_isStopped = false;
};
