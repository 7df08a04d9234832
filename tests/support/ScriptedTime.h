// SPDX-License-Identifier: MIT
// Clocks for tests. ScriptedTime never sleeps: a pause advances its clock. It records the lengths
// of pauses and of waits for events.
// ShortPauses uses the real clock and shortens pauses and event waits to a fraction. Its clock may
// run slower than the real one: a peer that is slow under a sanitizer or on a busy machine then
// still answers in time.
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
    // A pause lasts 1/factor of its length; a second of this clock lasts `slowness` real seconds.
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
