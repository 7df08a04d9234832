// Clocks for tests. ScriptedTime never sleeps: a pause moves its clock on and is remembered, and so
// is the length of every wait for an event.
// ShortPauses runs the real clock, with pauses and event waits a fraction of their length. The
// clock itself may go slower than the real one: a program under a sanitizer, or on a busy machine,
// then has as much time for an answer as it would need less of elsewhere.
#pragma once
#include "VYM/vymMac.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

class ScriptedTime : public TimeSource {
public:
    ScriptedTime() { setTimeSource(this); }
    ~ScriptedTime() override { setTimeSource(nullptr); }
    ScriptedTime(const ScriptedTime&) = delete;
    ScriptedTime& operator=(const ScriptedTime&) = delete;

    [[nodiscard]] std::uint64_t nowMilliseconds() const override { return m_now; }
    void sleepMilliseconds(unsigned long milliseconds) override
    {
        m_now += milliseconds;
        const std::lock_guard lock(m_mutex);
        m_pauses.push_back(milliseconds);
    }
    [[nodiscard]] unsigned long waitLimit(unsigned long milliseconds) const override
    {
        const std::lock_guard lock(m_mutex);
        m_waits.push_back(milliseconds);
        return std::min(milliseconds, 1UL);
    }
    void advance(std::uint64_t milliseconds) { m_now += milliseconds; }
    [[nodiscard]] std::vector<unsigned long> pauses() const
    {
        const std::lock_guard lock(m_mutex);
        return m_pauses;
    }
    [[nodiscard]] std::vector<unsigned long> waits() const
    {
        const std::lock_guard lock(m_mutex);
        return m_waits;
    }

private:
    std::atomic<std::uint64_t> m_now{1000};
    mutable std::mutex m_mutex;
    std::vector<unsigned long> m_pauses;
    mutable std::vector<unsigned long> m_waits;
};

class ShortPauses : public TimeSource {
public:
    // A pause lasts 1/factor of its length; a second on this clock lasts slowness real ones.
    ShortPauses(unsigned long factor, unsigned slowness) : m_factor(factor), m_slowness(slowness)
    {
        setTimeSource(this);
    }
    ~ShortPauses() override { setTimeSource(nullptr); }
    ShortPauses(const ShortPauses&) = delete;
    ShortPauses& operator=(const ShortPauses&) = delete;

    [[nodiscard]] std::uint64_t nowMilliseconds() const override
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return static_cast<std::uint64_t>(
                   std::chrono::duration_cast<std::chrono::milliseconds>(now).count())
            / m_slowness;
    }
    void sleepMilliseconds(unsigned long milliseconds) override
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds / m_factor));
    }
    [[nodiscard]] unsigned long waitLimit(unsigned long milliseconds) const override
    {
        return milliseconds / m_factor;
    }

private:
    unsigned long m_factor;
    unsigned m_slowness;
};
