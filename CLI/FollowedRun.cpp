// SPDX-License-Identifier: MIT
#include "CLI/FollowedRun.h"

#include "UI/Printers/PrinterCheck.h"

#include <algorithm>
#include <limits>

namespace {

RunLogFacts logFacts(const PackageFacts& package, const Destination& destination)
{
    RunLogFacts facts{"vymkit-cli " VYMKIT_VERSION, package.folder,     package.model, {},
                      destination.printerName,      destination.address};
    for (const auto& firmware : package.firmware)
        facts.firmware.push_back(
            {firmware.displayName, firmware.displayVersion, firmware.nameInPrinter});
    return facts;
}

} // namespace

FollowedRun::FollowedRun(const PackageFacts& package, Workplace& place, Destination& destination)
    : m_package(package), m_place(place), m_target(destination.run),
      m_run(logFacts(package, destination)), m_leaveAt(std::numeric_limits<double>::infinity())
{
    m_facts.address = destination.address;
    m_facts.printerName = destination.printerName;
}

Outcome FollowedRun::follow(RunLock lock)
{
    noteBeginning();
    m_run.keep(std::move(lock));
    m_place.bytesWentOut = std::nullopt; // until the outcomes are known
    if (m_run.start(m_target, static_cast<unsigned short>(m_package.portNumber), m_place.choice))
        watch();
    takeResult();
    auto outcome = concludeUpdate(m_package, m_facts);
    m_run.finish(outcome.name, outcome.resultCode);
    return outcome;
}

// First what needs no memory.
void FollowedRun::takeResult()
{
    m_facts.endCode = m_run.endCode();
    m_facts.lastRecord = m_run.record();
    m_facts.outcomes = m_run.takeOutcomes();
    const auto& all = m_facts.outcomes;
    m_place.bytesWentOut =
        std::any_of(all.begin(), all.end(), [](const auto& each) { return each.m_bytesWentOut; });
    m_facts.printerModel = m_run.printerModel();
    m_facts.link = linkFacts(m_place.trace, m_target.port());
}

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
    for (;;) {
        const bool hasEnded = m_stopping.isDone();
        show(m_run.look());
        if (hasEnded)
            break;
        watchQuiet();
        if (m_run.endCode().has_value())
            askToStop();
        hear(m_place.session.wait(m_leaveAt));
        if (m_facts.stop != StopCause::none)
            askToStop();
        if (m_place.session.seconds() >= m_leaveAt && leaveBehind())
            break;
    }
}

void FollowedRun::askToStop()
{
    m_run.willStop();
    if (m_stopping.isStarted())
        return;
    if (m_facts.stop != StopCause::none)
        m_leaveAt = m_place.session.seconds() + kLeavingGrace;
    m_stopping.start(m_place.session, [this] { m_run.stop(); });
}

// False where firmware may be on its way: such a worker is waited for.
bool FollowedRun::leaveBehind()
{
    m_leaveAt = std::numeric_limits<double>::infinity();
    m_place.isThreadLeft = !m_stopping.isDone() && m_run.refuseFirmware();
    if (m_place.isThreadLeft)
        m_run.log().note("the printer did not answer in time; it was left before any firmware");
    return m_place.isThreadLeft;
}

void FollowedRun::show(const RunStep& step)
{
    const auto& record = m_run.record();
    try {
        m_place.report.status({record, firmwareNameOf(record), displayNameOf(record), step,
                               m_package.firmware.size(), m_place.session.seconds()});
    } catch (const std::exception&) { // out of memory: the run goes on unseen
    }
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
    const bool isLong = m_run.isLongQuiet();
    const bool hasEnded = m_run.endCode().has_value();
    if (isLong && !m_isQuiet && !hasEnded)
        m_place.report.quiet(silence, m_place.session.seconds());
    m_isQuiet = isLong;
    const auto limit = m_place.options.stallLimit;
    const bool goesOn = m_facts.stop == StopCause::none && !hasEnded;
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
    if (m_run.endCode().has_value()) {
        // It already ends by itself, but a silent printer delays that.
        m_leaveAt = m_place.session.seconds() + kLeavingGrace;
        return;
    }
    if (wake == Wake::signal)
        stopFor(StopCause::user, "a signal asks to stop");
    else
        stopFor(StopCause::deadline, "the deadline asks to stop");
}
