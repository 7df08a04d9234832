// SPDX-License-Identifier: MIT
#include "VYM/vymThread.h"

#include "VYM/DebugText.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymProtocol.h"

#include <cassert>
#include <exception>
#include <memory>
#include <optional>

namespace {

// One step of the run; running out of memory in it is a result like any other.
template <class Step> int guarded(Step step)
{
    try {
        return step();
    } catch (const std::exception&) {
        return result::kSystem;
    }
}

} // namespace

struct vymThread::Entry {
    std::string firmName;
    std::string updateVersion;
    std::string fileName;
    std::string subFileName;
    std::string compatibleVersion;
    std::string headerValue;

    bool read(unsigned index)
    {
        return g_VymInfo.getVersion(index, firmName, updateVersion, fileName, subFileName,
                                    compatibleVersion, headerValue);
    }
};

vymThread::vymThread()
{
    m_info.m_result = result::kSuccess;
}

vymThread::~vymThread()
{
    if (m_thread.created != 0)
        StopThread();
    closeEvents();
}

bool vymThread::UpdateStart(char* queue, char* port, unsigned short portNo)
{
    // Set events stay set: a second run would neither be waited for nor stop.
    if (m_stopEvent.created != 0)
        return false;
    m_queue = queue;
    m_port = port;
    m_portNo = portNo;
    m_started = false;
    bool running = CreateEvent(m_stopEvent) && CreateEvent(m_startedEvent)
        && _beginthread(m_thread, &ThreadFunc, 0, this);
    while (running && !IsEventSet(m_startedEvent)) // a wait may end early
        running = WaitForSingleObjectEvent(m_startedEvent, kInfinite) == kWaitSignalled;
    running = running && m_started;
    if (!running) {
        if (m_thread.created != 0)
            StopThread();
        closeEvents();
    }
    return running;
}

bool vymThread::StopThread()
{
    m_stopRequested = true;
    if (m_stopEvent.created != 0)
        SetEvent(m_stopEvent);
    WaitForSingleObjectThread(m_thread, kInfinite);
    return true;
}

bool vymThread::RefuseFirmware()
{
    m_stopRequested = true;
    auto gate = Gate::open;
    return m_gate.compare_exchange_strong(gate, Gate::shut) || gate == Gate::shut;
}

bool vymThread::SetPolling(unsigned long milliseconds)
{
    const HoldLock hold(m_lock);
    if (milliseconds == 0)
        return false;
    m_pollingInterval = milliseconds;
    return true;
}

bool vymThread::SetVymInfo()
{
    const HoldLock hold(m_lock);
    return false;
}

bool vymThread::CheckState(tag_devinfo& info) const
{
    const HoldLock hold(m_lock);
    copyDevInfo(m_info, info);
    return true;
}

bool vymThread::GetEntryOutcome(unsigned index, tag_entryoutcome& outcome) const
{
    const HoldLock hold(m_lock);
    if (index >= m_outcomes.size())
        return false;
    outcome = m_outcomes[index];
    return true;
}

bool vymThread::GetPrinterModel(std::string& model) const
{
    const HoldLock hold(m_lock);
    model = m_printerModel;
    return !model.empty();
}

void* vymThread::ThreadFunc(void* worker)
{
    auto* self = static_cast<vymThread*>(worker);
    self->RunThread(self->m_queue, self->m_port, self->m_portNo);
    return nullptr;
}

void vymThread::RunThread(char* queue, char* port, unsigned short portNo)
{
    std::unique_ptr<vymProtocol> protocol;
    try {
        protocol = std::make_unique<vymProtocol>();
    } catch (const std::exception&) {
        const HoldLock hold(m_lock);
        storeField(m_info.m_result, static_cast<std::int32_t>(result::kSystem));
        storeState(m_info, state_failed);
    }
    m_started = protocol != nullptr;
    SetEvent(m_startedEvent);
    if (protocol == nullptr)
        return;
    pauseMilliseconds(vymProtocol::kSettleMs);
    sealPackage();
    runUpdate(*protocol, queue, port, portNo);
}

// From here on only these bytes of the package are sent. An unreadable package is reported when
// its first image is read.
void vymThread::sealPackage()
{
    guarded([this] {
        if (auto* container = vymBindInfo::Instance();
            container != nullptr && !container->isSealed())
            container->seal([this](auto /*part*/) { return !m_stopRequested; });
        return result::kSuccess;
    });
}

void vymThread::runUpdate(vymProtocol& protocol, char* queue, char* port, unsigned short portNo)
{
    const int entered =
        guarded([&] { return protocol.EnterDownLoadMode(queue, port, portNo, false); });
    if (entered != result::kSuccess) {
        // Without "enter" there is no "leave"; the protocol object closes the connection.
        protocol.setUpdateState(m_info, state_failed, entered, 0, 0);
        idleUntilStopped();
        return;
    }
    protocol.setUpdateState(m_info, state_entered, result::kSuccess, 0, 0);
    const int code = guarded([&] { return updateUntilStopped(protocol); });
    if (code != result::kSuccess)
        protocol.setUpdateState(m_info, state_failed, code, 0, 0);
    guarded([&] { return protocol.ExitDownLoadMode(); });
    const int refused = protocol.RefusedAtTheEnd();
    if (code == result::kSuccess && refused != result::kSuccess)
        protocol.setUpdateState(m_info, state_failed, notTakenIf(refused), 0, 0);
    if (code != result::kSuccess)
        idleUntilStopped();
}

// For people alone: a run does not depend on it.
void vymThread::keepPrinterModel(const vymProtocol& protocol)
{
    guarded([&] {
        std::string model;
        protocol.getTargetModel(model);
        const HoldLock hold(m_lock);
        m_printerModel = std::move(model);
        return result::kSuccess;
    });
}

// Everything between entering and leaving download mode.
int vymThread::updateUntilStopped(vymProtocol& protocol)
{
    const int fetched = protocol.GetFileData("TargetInfo.txt");
    if (fetched != result::kSuccess)
        return fetched;
    keepPrinterModel(protocol);
    std::string model;
    if (!g_VymInfo.getTgmName(model))
        return result::kSystem;
    protocol.setPolingTime(pollingInterval());
    protocol.LeaveOutSame(m_choice.skipSame);
    auto gate = Gate::open;
    if (m_stopRequested || !m_gate.compare_exchange_strong(gate, Gate::passed))
        return result::kSuccess;
    int overall = result::kSuccess;
    const int updated = updateAllEntries(protocol, model, overall);
    if (updated != result::kSuccess)
        return updated;
    // Publishes the final state again and again until the run is stopped; each time it yields the
    // processor to other threads.
    do {
        protocol.setUpdateState(m_info, state_done, overall, 0, 0);
        yieldProcessor();
    } while (!m_stopRequested);
    return result::kSuccess;
}

// Updates every entry in turn, even after a stop request: a printer with half of its firmware new
// and half old is worse than a longer run. overall becomes the last entry's outcome.
int vymThread::updateAllEntries(vymProtocol& protocol, const std::string& model, int& overall)
{
    const auto total = g_VymInfo.countVersionRows();
    debugText("Thread:TotalFirmNum = %d", static_cast<int>(total));
    {
        const HoldLock hold(m_lock);
        m_outcomes.reserve(total); // so that an outcome can be stored once firmware is on its way
    }
    std::optional<std::uint32_t> before; // the entry whose turn it was last; no one left out
    for (std::uint32_t n = 0; n < total; ++n) {
        Entry entry;
        if (!entry.read(n))
            break;
        if (!m_choice.wants(n + 1)) {
            leaveOut(n + 1);
            continue;
        }
        const bool isOpen = before.has_value() && !protocol.FirmwareIsAnswered();
        const int code = updateEntry(protocol, model, n + 1, entry);
        if (code != result::kSuccess && code != result::kNotApplicable) {
            if (isOpen && !protocol.FetchIsHeard())
                withdrawSuccess(*before, code);
            return code;
        }
        overall = code;
        before = n;
    }
    if (total != 0)
        publishState(state_done);
    return result::kSuccess;
}

int vymThread::updateEntry(vymProtocol& protocol, const std::string& model, std::uint32_t number,
                           const Entry& entry)
{
    assert(number != 0);
    {
        const HoldLock hold(m_lock);
        storeField(m_info.m_firmwareNumber, number);
    }
    const int code = guarded([&] {
        return protocol.UpdateFirmware(model.c_str(), entry.firmName.c_str(),
                                       entry.updateVersion.c_str(), entry.fileName.c_str(),
                                       entry.subFileName.c_str(), entry.compatibleVersion.c_str(),
                                       m_info);
    });
    keepOutcome(protocol, number, code);
    if (code == result::kSuccess)
        return finishEntry(protocol);
    if (code == result::kNotApplicable) {
        const HoldLock hold(m_lock);
        storeFirmwareName(m_info, entry.subFileName);
        storeField(m_info.m_result, static_cast<std::int32_t>(code));
    }
    return code;
}

// Counts a successful entry, and waits until the printer has written it.
int vymThread::finishEntry(vymProtocol& protocol)
{
    bool polled = false;
    {
        const HoldLock hold(m_lock);
        storeField(m_info.m_updatedCount, m_info.m_updatedCount + 1);
        polled = m_info.m_checkStateSupported != 0;
    }
    if (!polled)
        publishState(state_finished);
    else if (const int code = pollUntilWritten(protocol); code != result::kSuccess)
        return code;
    if (!polled || m_info.m_updateState == state_finished)
        pauseMilliseconds(vymProtocol::kSettleMs);
    // The printer has had this pause to say more.
    return notTakenIf(guarded([&] { return protocol.HearLateAnswers(); }));
}

// The printer never said that all of it had arrived: the entry ends with that code as well.
int vymThread::notTakenIf(int code)
{
    const HoldLock hold(m_lock);
    if (code != result::kSuccess && !m_outcomes.empty())
        m_outcomes.back().m_result = code;
    return code;
}

// The next firmware's first request was never answered, or a refusal came in its place: the printer
// may not have taken everything of the firmware before.
void vymThread::withdrawSuccess(std::uint32_t index, int code)
{
    const HoldLock hold(m_lock);
    assert(index < m_outcomes.size()); // every entry before the failed one has its outcome
    auto& outcome = m_outcomes[index];
    if (outcome.m_result == result::kSuccess && outcome.m_bytesWentOut && !outcome.m_confirmed)
        outcome.m_result = code;
}

// Polls until the printer reports that it has finished. A stop ends the polling at once; the
// printer goes on writing.
int vymThread::pollUntilWritten(vymProtocol& protocol)
{
    bool taken = !protocol.FirmwareBytesWentOut() || protocol.FirmwareIsAnswered();
    while (!m_stopRequested) {
        WaitForSingleObjectEvent(m_stopEvent, pollingInterval());
        if (const int code = protocol.CheckState(m_info); code != result::kSuccess) {
            // A refusal is about this firmware; another failure leaves what is known of it.
            const bool isKnown = taken || protocol.StatusIsHeard();
            return isKnown && code != result::kDeviceError ? code : notTakenIf(code);
        }
        taken = true;
        if (m_info.m_updateState == state_finished) {
            const HoldLock hold(m_lock);
            assert(!m_outcomes.empty()); // the entry that is polled for is the last one kept
            m_outcomes.back().m_confirmed = m_outcomes.back().m_bytesWentOut;
            break;
        }
    }
    // Without a status query, the answer to the last block must suffice.
    return taken ? result::kSuccess : notTakenIf(protocol.ConcludeFirmware());
}

void vymThread::keepOutcome(const vymProtocol& protocol, std::uint32_t number, int code)
{
    const bool wentOut = protocol.FirmwareBytesWentOut();
    const HoldLock hold(m_lock);
    assert(m_outcomes.empty() || m_outcomes.back().m_number < number);
    m_outcomes.push_back({number, code, protocol.DecisionReason(), wentOut, false,
                          wentOut ? m_info.m_bytesDone : 0, wentOut ? m_info.m_bytesTotal : 0});
}

// The record does not mention such an entry: the printer is not queried for it either.
void vymThread::leaveOut(std::uint32_t number)
{
    const HoldLock hold(m_lock);
    assert(m_outcomes.empty() || m_outcomes.back().m_number < number);
    m_outcomes.push_back({number, kNotChosen.code, kNotChosen.reason, false, false, 0, 0});
}

void vymThread::publishState(update_state state)
{
    const HoldLock hold(m_lock);
    storeState(m_info, state);
}

void vymThread::idleUntilStopped()
{
    while (!m_stopRequested)
        WaitForSingleObjectEvent(m_stopEvent, pollingInterval());
}

unsigned long vymThread::pollingInterval() const
{
    const HoldLock hold(m_lock);
    return m_pollingInterval;
}

void vymThread::closeEvents()
{
    for (auto* event : {&m_stopEvent, &m_startedEvent}) {
        if (event->created != 0)
            CloseEvent(*event);
    }
}
