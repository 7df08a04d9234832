// SPDX-License-Identifier: MIT
#include "UI/Run/WatchedRun.h"

#include "UI/Text/PlainText.h"
#include "UI/vymThreadPrinter.h"
#include "UI/vymThreadRefusal.h"
#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"
#include "VYM/vymMac.h"

#include <cassert>
#include <new>

namespace {

// The time between two status queries to the printer. Half of the caller's interval, so that
// two looks never show the same answer while the printer writes.
constexpr unsigned long kPollingMs = 500;

constexpr unsigned long kStopLookMs = 10; // between two looks at a stop on another thread

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
    m_outcomes.reserve(m_names.size());
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
    if (!lock(portNumber))
        return false;
    m_worker = vym_thread_create();
    m_changedAt = tickMilliseconds();
    const bool isStarted = m_worker != nullptr && !m_target.isEmpty()
        && vymThread_ChooseEntries(m_worker, choice)
        && vymThread_UpdateStart(m_worker, m_target.queue(), m_target.port(), portNumber);
    m_mayHandleMore = isStarted;
    if (isStarted)
        vymThread_SetPolling(m_worker, kPollingMs);
    else
        m_endCode = result::kSystem;
    return isStarted;
}

// False where another program holds the printer's lock. Where no lock can be made, the run goes on:
// the printer has its own guard.
bool WatchedRun::lock(unsigned short portNumber)
{
    if (PrinterLocks::plugged() == nullptr || m_target.isEmpty())
        return true;
    const auto status = m_lock.take(m_target, portNumber);
    if (status == RunLock::Status::unavailable)
        m_log.note("no lock of this printer could be made on this computer");
    if (status != RunLock::Status::held)
        return true;
    m_log.note(m_lock.heldText());
    m_heldBy = m_lock.holder();
    m_endCode = result::kBusy;
    return false;
}

const RunStep& WatchedRun::look()
{
    tag_devinfo now{};
    if (!vymThread_CheckState(m_worker, &now))
        return m_step; // no worker, so no news
    try {
        now = withAgreeingName(now, m_names);
    } catch (const std::bad_alloc&) { // a look is worth more than its name
    }
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
    if (m_isWaitedFor.exchange(true)) {
        while (!m_hasStopped)
            pauseMilliseconds(kStopLookMs);
        return;
    }
    vymThread_StopThread(m_worker);
    m_lock.release();
    m_mayHandleMore = false;
    m_hasStopped = true;
}

bool WatchedRun::refuseFirmware()
{
    assert(m_isStopping);
    const bool isRefused = vymThread_RefuseFirmware(m_worker);
    if (isRefused)
        m_mayHandleMore = false;
    return isRefused;
}

std::string WatchedRun::printerModel() const
{
    std::string model;
    return vymThread_GetPrinterModel(m_worker, model) ? plainText(model) : "";
}

std::vector<tag_entryoutcome> WatchedRun::takeOutcomes()
{
    assert(!m_mayHandleMore);
    tag_entryoutcome outcome{};
    for (unsigned i = 0; vymThread_GetEntryOutcome(m_worker, i, &outcome); ++i) {
        m_outcomes.push_back(outcome);
        m_log.outcome(outcome);
    }
    return std::move(m_outcomes);
}

void WatchedRun::finish(std::string_view resultName, std::optional<int> code)
{
    m_log.end(resultName, code);
}
