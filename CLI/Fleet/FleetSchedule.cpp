// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetSchedule.h"

#include <cassert>

std::optional<std::size_t> FleetSchedule::take()
{
    if (!mayStart() || running() >= m_limits.jobs)
        return std::nullopt;
    if (m_started >= m_limits.canary && isCanaryRunning())
        return std::nullopt; // the rest waits for all of the first
    return m_started++;
}

void FleetSchedule::ended(bool well)
{
    assert(running() != 0);
    // Until all of them have ended, nothing but the first few can have run.
    if (isCanaryRunning() && !well)
        ++m_canaryFailures;
    ++m_ended;
    m_failures += well ? 0 : 1;
}

bool FleetSchedule::mayStart() const
{
    if (m_isStopped || m_started >= m_count || hasTooManyFailures())
        return false;
    return m_started < m_limits.canary || !isCanaryBad();
}
