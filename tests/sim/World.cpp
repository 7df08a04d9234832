// SPDX-License-Identifier: MIT
#include "tests/sim/World.h"

#include "tests/sim/Memory.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace sim {

std::uint64_t g_seed = 0;

namespace {

constexpr Micros kLongestRun = 48 * 3600 * kSecond; // no run of a few images takes this long
constexpr std::uint64_t kMostCalls = 20'000'000; // a run with waits makes far fewer

World* g_world = nullptr;

} // namespace

World::World(bool traced) : m_traced(traced)
{
    g_world = this;
    setTimeSource(this);
}

World::~World()
{
    setTimeSource(nullptr);
    g_world = nullptr;
}

World& World::current()
{
    return *g_world;
}

bool World::exists()
{
    return g_world != nullptr;
}

std::uint64_t World::nowMilliseconds() const
{
    return kSecond / kMilli + m_now / kMilli;
}

void World::sleepMilliseconds(unsigned long milliseconds)
{
    const Outside outside;
    trace("worker   pauses %lu ms", milliseconds);
    waitUntil(m_now + milliseconds * kMilli, [] { return false; });
}

unsigned long World::waitLimit(unsigned long milliseconds) const
{
    m_eventWait = milliseconds;
    return milliseconds;
}

void World::at(Micros when, std::function<void()> what)
{
    m_events.push({std::max(when, m_now), m_number++, std::move(what)});
}

void World::takePlace()
{
    const auto what = std::move(const_cast<Event&>(m_events.top()).what);
    m_now = std::max(m_now, m_events.top().when);
    m_events.pop();
    what();
}

bool World::waitUntil(Micros deadline, const std::function<bool()>& ready)
{
    while (!ready()) {
        if (m_events.empty() && deadline == kForever)
            hung("nothing is left to happen");
        if (m_events.empty() || m_events.top().when > deadline) {
            m_now = std::max(m_now, deadline);
            return ready();
        }
        takePlace();
        if (m_now > kLongestRun)
            hung("it takes longer than two days");
    }
    return true;
}

void World::spend(Micros moment)
{
    if (++m_calls > kMostCalls)
        hung("it calls and calls");
    waitUntil(m_now + moment, [] { return false; });
}

void World::yield()
{
    if (++m_calls > kMostCalls)
        hung("it yields and yields");
    if (!m_events.empty())
        takePlace();
}

void World::settle(Micros longest)
{
    waitUntil(m_now + longest, [this] { return m_events.empty(); });
}

void World::hung(const char* how) const
{
    std::fputs(m_trace.c_str(), stdout);
    std::printf("seed %llu: the run hangs: %s\n", static_cast<unsigned long long>(g_seed), how);
    std::fflush(stdout);
    std::_Exit(1);
}

void World::trace(const char* format, ...)
{
    if (!m_traced)
        return;
    const Outside outside;
    char line[200];
    const int head = std::snprintf(line, sizeof line, "%12.6f  ", static_cast<double>(m_now) / 1e6);
    va_list values;
    va_start(values, format);
    std::vsnprintf(line + head, sizeof line - static_cast<std::size_t>(head), format, values);
    va_end(values);
    m_trace.append(line).append("\n");
}

} // namespace sim
