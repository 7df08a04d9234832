#include "CLI/BackgroundTask.h"
#include "CLI/Commands.h"
#include "CLI/Verification.h"
#include "Platform/SleepInhibitor.h"
#include "UI/Printers/PrinterCheck.h"
#include "UI/Run/WatchedRun.h"

namespace {

UpdateFacts begunFacts(const Destination& destination)
{
    UpdateFacts facts;
    facts.address = destination.address;
    facts.printerName = destination.printerName;
    return facts;
}

RunLogFacts logFacts(const PackageFacts& package, const Destination& destination)
{
    RunLogFacts facts{"vymkit-cli " VYMKIT_VERSION, package.folder,     package.model, {},
                      destination.printerName,      destination.address};
    for (const auto& firmware : package.firmware)
        facts.firmware.push_back(
            {firmware.displayName, firmware.displayVersion, firmware.nameInPrinter});
    return facts;
}

// Follows the run for the command line: shows each look, handles stop requests, concludes.
class FollowedRun {
public:
    FollowedRun(const PackageFacts& package, Workplace& place, Destination& destination)
        : m_package(package), m_place(place), m_destination(destination),
          m_facts(begunFacts(destination)), m_run(logFacts(package, destination))
    {
    }

    Outcome follow()
    {
        noteBeginning();
        const auto portNumber = static_cast<unsigned short>(m_package.portNumber);
        if (m_run.start(m_destination.run, portNumber, m_place.choice))
            watch();
        m_facts.endCode = m_run.endCode();
        m_facts.lastRecord = m_run.record();
        m_facts.outcomes = m_run.takeOutcomes();
        m_facts.connect = m_place.trace.lastConnect();
        m_facts.notPermitted = isForbiddenPort(m_destination.run.port());
        auto outcome = concludeUpdate(m_package, m_facts);
        m_run.finish(outcome.name, outcome.resultCode);
        return outcome;
    }

private:
    void noteBeginning();
    void watch();
    void show(const RunStep& step);
    void hear(Wake wake);
    void watchQuiet();
    void stopFor(StopCause cause, std::string_view note);
    [[nodiscard]] std::string displayNameOf(const tag_devinfo& record) const;

    const PackageFacts& m_package;
    Workplace& m_place;
    Destination& m_destination;
    UpdateFacts m_facts;
    WatchedRun m_run;
    bool m_isQuiet = false; // the person has been told
    const SleepInhibitor m_awake{"Vymkit", "A printer's firmware is being updated"};
};

void FollowedRun::noteBeginning()
{
    auto& log = m_run.log();
    if (!m_place.systemRemark.empty())
        log.note(m_place.systemRemark);
    log.note(m_awake.note());
    if (m_place.options.verbose)
        m_place.display.line(log.path().empty() ? "no log: " + log.problem()
                                                : "log: " + log.path());
}

// The worker ends only on request, even after its last state; that may take long, so a separate
// thread waits for it.
void FollowedRun::watch()
{
    BackgroundTask stopping;
    const auto askToStop = [this, &stopping] {
        m_run.willStop();
        if (!stopping.isStarted())
            stopping.start(m_place.session, [this] { m_run.stop(); });
    };
    for (;;) {
        const bool hasEnded = stopping.isDone();
        show(m_run.look());
        if (hasEnded)
            break;
        watchQuiet();
        if (m_run.endCode().has_value())
            askToStop();
        hear(m_place.session.wait());
        if (m_facts.stop != StopCause::none)
            askToStop();
    }
}

void FollowedRun::show(const RunStep& step)
{
    const auto& record = m_run.record();
    m_place.report.status({record, firmwareNameOf(record), displayNameOf(record), step,
                           m_package.firmware.size(), m_place.session.seconds()});
}

// A name that the package does not know is shown unchanged.
std::string FollowedRun::displayNameOf(const tag_devinfo& record) const
{
    const auto& all = m_package.firmware;
    auto name = firmwareNameOf(record);
    const auto number = record.m_firmwareNumber;
    if (number < 1 || number > all.size())
        return name;
    const auto& firmware = all[number - 1];
    return name.empty() || name == firmware.nameInPrinter ? firmware.displayName : name;
}

// Explains a long wait to a person; a script can set a limit of its own.
void FollowedRun::watchQuiet()
{
    const double silence = static_cast<double>(m_run.quietMilliseconds()) / 1000;
    const bool isLong = m_run.quietMilliseconds() >= WatchedRun::kQuietHint;
    if (isLong && !m_isQuiet)
        m_place.report.quiet(silence, m_place.session.seconds());
    m_isQuiet = isLong;
    const auto limit = m_place.options.stallLimit;
    const bool goesOn = m_facts.stop == StopCause::none && !m_run.endCode().has_value();
    if (!goesOn || !limit.has_value() || silence < *limit)
        return;
    m_facts.stallLimit = *limit;
    stopFor(StopCause::stall, "the stall limit asks to stop");
}

void FollowedRun::stopFor(StopCause cause, std::string_view note)
{
    if (m_facts.stop == StopCause::none)
        m_facts.stop = cause;
    m_run.log().note(note);
    m_place.report.stopping(cause, m_place.session.seconds());
}

void FollowedRun::hear(Wake wake)
{
    if (wake != Wake::signal && wake != Wake::deadline)
        return;
    if (m_run.endCode().has_value())
        return; // it already ends by itself
    if (wake == Wake::signal)
        stopFor(StopCause::user, "a signal asks to stop");
    else
        stopFor(StopCause::deadline, "the deadline asks to stop");
}

bool isYes(std::string answer)
{
    for (auto& c : answer)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return answer == "y" || answer == "yes";
}

std::string question(const PackageFacts& package, const EntryChoice& choice,
                     const Destination& destination)
{
    const auto& name = destination.printerName;
    std::string text = "The printer " + (name.empty() ? "" : name + " ") + "at "
        + destination.address + " will be updated with:\n";
    for (const auto& firmware : package.firmware) {
        if (choice.wants(firmware.number))
            text += "  " + firmware.displayName + " " + firmware.displayVersion + "\n";
    }
    return text
        + "Do not switch the printer off, and do not print, until the update has finished.\n"
          "Start the update? [y/N] ";
}

} // namespace

StopCause askPerson(Workplace& place, const std::string& question)
{
    place.display.prompt(question);
    const auto answer = place.session.readLine(place.console.in);
    if (answer.has_value())
        return isYes(*answer) ? StopCause::none : StopCause::answer;
    place.display.line("");
    return place.session.isOverdue() ? StopCause::deadline : StopCause::user;
}

Outcome runUpdate(const PackageFacts& package, Workplace& place, Destination& destination)
{
    if (!place.options.yes) {
        auto facts = begunFacts(destination);
        facts.stop = askPerson(place, question(package, place.choice, destination));
        if (facts.stop != StopCause::none)
            return concludeUpdate(package, facts);
    }
    auto outcome = FollowedRun(package, place, destination).follow();
    if (place.options.verify.has_value() && outcome.verdict == Verdict::updated)
        verify(package, place, destination, *place.options.verify, outcome);
    return outcome;
}
