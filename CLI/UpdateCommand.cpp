#include "CLI/BackgroundTask.h"
#include "CLI/Commands.h"
#include "Platform/SleepInhibitor.h"
#include "UI/Printers/PrinterCheck.h"
#include "UI/Run/RunLog.h"
#include "UI/Text/PlainText.h"
#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned long kEnginePolling = 500; // milliseconds between two questions to the printer

UpdateFacts begunFacts(const Destination& destination)
{
    UpdateFacts facts;
    facts.address = destination.address;
    facts.printerName = destination.printerName;
    return facts;
}

// One run of the engine's worker, watched until the worker has ended.
class WatchedRun {
public:
    WatchedRun(const PackageFacts& package, Workplace& place, Destination& destination)
        : m_package(package), m_place(place), m_run(destination.run),
          m_facts(begunFacts(destination))
    {
        m_facts.lastRecord.m_result = result::kSuccess;
    }
    ~WatchedRun() { vym_thread_delete(m_worker); }
    WatchedRun(const WatchedRun&) = delete;
    WatchedRun& operator=(const WatchedRun&) = delete;

    Outcome run()
    {
        beginLog();
        if (start())
            watch();
        else
            m_facts.endCode = result::kSystem;
        m_facts.notPermitted = isForbiddenPort(m_run.address());
        auto outcome = concludeUpdate(m_package, m_facts);
        m_log.end(outcome.name, outcome.resultCode);
        return outcome;
    }

private:
    void beginLog();
    bool start();
    void watch();
    void look();
    void hear(Wake wake, BackgroundTask& stopping);
    void collectOutcomes();
    [[nodiscard]] std::string displayNameOf(const std::string& firmwareName) const;

    const PackageFacts& m_package;
    Workplace& m_place;
    RunTarget& m_run; // the worker's, until it has ended
    UpdateFacts m_facts;
    void* m_worker = nullptr;
    RunLog m_log;
    const SleepInhibitor m_awake{"Vymkit", "A printer's firmware is being updated"};
};

void WatchedRun::beginLog()
{
    RunLogFacts facts{"vymkit-cli " VYMKIT_VERSION, m_package.folder, m_package.model, {},
                      m_facts.printerName,          m_facts.address};
    for (const auto& firmware : m_package.firmware)
        facts.firmware.push_back({firmware.displayName, firmware.displayVersion});
    m_log.start(facts);
    m_log.note(m_awake.note());
    if (m_place.options.verbose)
        m_place.display.line(m_log.path().empty() ? "no log: " + m_log.problem()
                                                  : "log: " + m_log.path());
}

bool WatchedRun::start()
{
    m_worker = vym_thread_create();
    if (!vymThread_UpdateStart(m_worker, m_run.identifier(), m_run.address(),
                               static_cast<unsigned short>(m_package.portNumber)))
        return false;
    vymThread_SetPolling(m_worker, kEnginePolling);
    return true;
}

// The worker ends only when it is asked to, after its last state too; that takes as long as it
// takes, so it is waited for on a thread of its own.
void WatchedRun::watch()
{
    BackgroundTask stopping;
    const auto askToStop = [this, &stopping] {
        if (!stopping.isStarted())
            stopping.start(m_place.session, [this] { vymThread_StopThread(m_worker); });
    };
    for (;;) {
        const bool hasEnded = stopping.isDone();
        look();
        if (hasEnded)
            break;
        if (m_facts.endCode.has_value())
            askToStop();
        hear(m_place.session.wait(), stopping);
        if (m_facts.stop != StopCause::none)
            askToStop();
    }
    collectOutcomes();
}

void WatchedRun::look()
{
    vymThread_CheckState(m_worker, &m_facts.lastRecord);
    const auto& record = m_facts.lastRecord;
    m_log.look(record);
    const std::string_view name(record.m_firmwareName,
                                strnlen(record.m_firmwareName, sizeof record.m_firmwareName));
    const auto step = runStep(record, m_package.firmware.size());
    // Once a stop was asked for, the worker's last state no longer tells how the run ended.
    if (m_facts.stop == StopCause::none && !m_facts.endCode.has_value())
        m_facts.endCode = step.endCode;
    const auto plainName = plainText(name);
    m_place.report.status({record, plainName, displayNameOf(plainName), step,
                           m_package.firmware.size(), m_place.session.seconds()});
}

std::string WatchedRun::displayNameOf(const std::string& firmwareName) const
{
    const auto& all = m_package.firmware;
    const auto same = std::find_if(all.begin(), all.end(), [&firmwareName](const auto& each) {
        return each.nameInPrinter == firmwareName;
    });
    return same != all.end() && !firmwareName.empty() ? same->displayName : firmwareName;
}

void WatchedRun::hear(Wake wake, BackgroundTask& stopping)
{
    if (wake != Wake::signal && wake != Wake::deadline)
        return;
    if (m_facts.endCode.has_value())
        return; // it is ending by itself
    if (!stopping.isStarted())
        m_facts.stop = wake == Wake::signal ? StopCause::user : StopCause::deadline;
    m_log.note(wake == Wake::signal ? "a signal asks to stop" : "the deadline asks to stop");
    m_place.report.stopping(wake == Wake::signal ? StopCause::user : StopCause::deadline,
                            m_place.session.seconds());
}

void WatchedRun::collectOutcomes()
{
    tag_entryoutcome outcome{};
    for (unsigned i = 0; vymThread_GetEntryOutcome(m_worker, i, &outcome); ++i) {
        m_facts.outcomes.push_back(outcome);
        m_log.outcome(outcome);
    }
}

bool isYes(std::string answer)
{
    for (auto& c : answer)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return answer == "y" || answer == "yes";
}

std::string question(const PackageFacts& package, const Destination& destination)
{
    const auto& name = destination.printerName;
    std::string text = "The printer " + (name.empty() ? "" : name + " ") + "at "
        + destination.address + " will be updated with:\n";
    for (const auto& firmware : package.firmware)
        text += "  " + firmware.displayName + " " + firmware.displayVersion + "\n";
    return text
        + "Do not switch the printer off, and do not print, until the update has finished.\n"
          "Start the update? [y/N] ";
}

// Why the update is not to start, or none.
StopCause ask(const PackageFacts& package, Workplace& place, const Destination& destination)
{
    place.display.prompt(question(package, destination));
    const auto answer = place.session.readLine(place.console.in);
    if (answer.has_value())
        return isYes(*answer) ? StopCause::none : StopCause::answer;
    place.display.line("");
    return place.session.isOverdue() ? StopCause::deadline : StopCause::user;
}

} // namespace

Outcome runUpdate(const PackageFacts& package, Workplace& place, Destination& destination)
{
    if (!place.options.yes) {
        auto facts = begunFacts(destination);
        facts.stop = ask(package, place, destination);
        if (facts.stop != StopCause::none)
            return concludeUpdate(package, facts);
    }
    return WatchedRun(package, place, destination).run();
}
