// SPDX-License-Identifier: MIT
#include "CLI/Verification.h"

#include "CLI/BackgroundTask.h"
#include "CLI/Messages.h"
#include "UI/Run/InstalledCheck.h"
#include "UI/Text/PlainText.h"
#include "UI/vym_etc.h"

#include <cassert>

namespace {

constexpr int kTicksBetween = 5; // seconds from one query to the next; a restart takes minutes

// The reason for the wait, and the cause of its end.
class Waiting {
public:
    Waiting(const PackageFacts& package, Workplace& place, double seconds)
        : m_place(place), m_end(place.session.seconds() + seconds),
          m_stage(package.needsExitOperation == yesno_yes
                      ? "Switch the printer off and on again. Waiting for it"
                      : "Waiting for the printer to come back")
    {
    }

    // False once the wait is over.
    bool goesOn()
    {
        const auto wake = m_place.session.wait();
        m_place.report.waiting(m_stage, m_place.session.seconds());
        m_wakes += wake == Wake::tick ? 1 : 0;
        m_isStopped = m_isStopped || wake == Wake::signal || wake == Wake::deadline;
        return !m_isStopped && m_place.session.seconds() < m_end;
    }
    void pause()
    {
        for (m_wakes = 0; m_wakes < kTicksBetween && goesOn();) { }
    }
    [[nodiscard]] bool isOver() const { return m_isStopped || m_place.session.seconds() >= m_end; }

private:
    Workplace& m_place;
    const double m_end;
    const std::string m_stage;
    int m_wakes = 0;
    bool m_isStopped = false;
};

CheckReport query(const PackageFacts& package, Workplace& place, Destination& destination,
                  Waiting& waiting)
{
    CheckReport report{};
    std::atomic<bool> stop{false};
    BackgroundTask task;
    task.start(place.session, [&] {
        report = vymCheck_Run(destination.run.queue(), destination.run.port(),
                              static_cast<unsigned short>(package.portNumber), stop);
    });
    while (!task.isDone()) {
        if (!waiting.goesOn())
            stop = true;
    }
    return report;
}

// Stores the installed versions; returns what they say about the firmware that was sent.
InstalledState take(const CheckReport& report, Outcome& outcome)
{
    for (const auto& entry : report.entries) {
        if (entry.number >= 1 && entry.number <= outcome.firmware.size())
            outcome.firmware[entry.number - 1].installedAfter = plainText(entry.installedVersion);
    }
    std::vector<SentEntry> sent;
    for (const auto& each : outcome.firmware) {
        if (each.bytesWentOut)
            sent.push_back({each.firmware.number, each.firmware.version});
    }
    return installedState(report, sent);
}

void conclude(Outcome& outcome, const char* name, int exitCode, std::string_view messageKey)
{
    MessageFacts facts;
    facts.address = outcome.address;
    outcome.verification = name;
    outcome.message = englishText(messageKey, facts);
    if (exitCode == exitcode::kDone)
        return;
    outcome.exitCode = exitCode;
    outcome.name = name;
    outcome.verdict = Verdict::failed;
    outcome.title = englishText(std::string(messageKey) + "Title", facts);
    outcome.next = NextStep::checkPrinter;
}

} // namespace

void verify(const PackageFacts& package, Workplace& place, Destination& destination, double seconds,
            Outcome& outcome)
{
    assert(outcome.verdict == Verdict::updated);
    Waiting waiting(package, place, seconds);
    bool wasRead = false;
    do {
        waiting.pause();
        const auto report = query(package, place, destination, waiting);
        const auto state = take(report, outcome);
        wasRead = wasRead || state != InstalledState::unknown;
        if (state == InstalledState::installed) {
            conclude(outcome, "verified", exitcode::kDone, "Verified");
            return;
        }
    } while (!waiting.isOver());
    if (wasRead)
        conclude(outcome, "not-installed", exitcode::kNotInstalled, "NotInstalled");
    else
        conclude(outcome, "not-confirmed", exitcode::kNotConfirmed, "NotConfirmed");
}
