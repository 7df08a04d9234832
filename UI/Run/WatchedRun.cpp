#include "UI/Run/WatchedRun.h"

#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"
#include "VYM/vymMac.h"

#include <cassert>

namespace {

// The time between two status queries to the printer. Half of the caller's interval, so that
// two looks never show the same answer while the printer writes.
constexpr unsigned long kPollingMs = 500;

std::vector<std::string> namesOf(const RunLogFacts& facts)
{
    std::vector<std::string> names;
    for (const auto& firmware : facts.firmware)
        names.push_back(firmware.nameInPrinter);
    return names;
}

} // namespace

WatchedRun::WatchedRun(const RunLogFacts& facts)
    : m_names(namesOf(facts)), m_changedAt(tickMilliseconds())
{
    m_record.m_result = result::kSuccess;
    m_log.start(facts);
}

WatchedRun::~WatchedRun()
{
    if (!m_hasStopped)
        stop();
    vym_thread_delete(m_worker);
}

bool WatchedRun::start(const RunTarget& target, unsigned short portNumber,
                       const EntryChoice& choice)
{
    assert(m_worker == nullptr);
    m_target = target;
    m_worker = vym_thread_create();
    m_changedAt = tickMilliseconds();
    const bool isStarted = m_worker != nullptr && !m_target.isEmpty()
        && vymThread_ChooseEntries(m_worker, choice)
        && vymThread_UpdateStart(m_worker, m_target.queue(), m_target.port(), portNumber);
    if (isStarted)
        vymThread_SetPolling(m_worker, kPollingMs);
    else
        m_endCode = result::kSystem;
    return isStarted;
}

const RunStep& WatchedRun::look()
{
    tag_devinfo now{};
    if (!vymThread_CheckState(m_worker, &now))
        return m_step; // no worker, so no news
    now = withAgreeingName(now, m_names);
    if (!isSameRecord(now, m_record))
        m_changedAt = tickMilliseconds();
    m_quiet = tickMilliseconds() - m_changedAt;
    m_record = now;
    m_log.look(m_record);
    m_step = runStep(m_record, m_names.size());
    if (!m_isStopping && !m_endCode.has_value())
        m_endCode = m_step.endCode;
    return m_step;
}

void WatchedRun::stop()
{
    willStop();
    vymThread_StopThread(m_worker);
    m_hasStopped = true;
}

std::vector<tag_entryoutcome> WatchedRun::takeOutcomes()
{
    std::vector<tag_entryoutcome> all;
    tag_entryoutcome outcome{};
    for (unsigned i = 0; vymThread_GetEntryOutcome(m_worker, i, &outcome); ++i) {
        all.push_back(outcome);
        m_log.outcome(outcome);
    }
    return all;
}

void WatchedRun::finish(std::string_view resultName, std::optional<int> code)
{
    m_log.end(resultName, code);
}
