// SPDX-License-Identifier: MIT
#include "CLI/Commands.h"
#include "CLI/FollowedRun.h"
#include "CLI/Verification.h"
#include "UI/Run/RunHistory.h"
#include "VYM/AsciiCase.h"

#include <memory>

namespace {

UpdateFacts begunFacts(const Destination& destination)
{
    UpdateFacts facts;
    facts.address = destination.address;
    facts.printerName = destination.printerName;
    return facts;
}

bool isYes(std::string_view answer)
{
    return ascii::equalNoCase(answer, "y") || ascii::equalNoCase(answer, "yes");
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

namespace {

// Waits for the printer's lock for as long as the user allows. Sets stop or held if that was in
// vain.
void takeLock(RunLock& lock, const PackageFacts& package, Workplace& place,
              Destination& destination, UpdateFacts& facts)
{
    const auto end = place.session.seconds() + place.options.lockTimeout.value_or(0);
    while (lock.take(destination.run, static_cast<unsigned short>(package.portNumber))
           == RunLock::Status::held) {
        if (place.session.seconds() >= end) {
            facts.held = lock.heldText();
            return;
        }
        place.report.waiting("Waiting: " + lock.heldText(), place.session.seconds());
        const auto wake = place.session.wait();
        if (wake != Wake::signal && wake != Wake::deadline)
            continue;
        facts.stop = wake == Wake::signal ? StopCause::user : StopCause::deadline;
        return;
    }
}

// A warning if the log of this printer's last update has no end; or empty. Called under the lock,
// so that no other update of it goes on here.
std::string unfinishedText(const Destination& destination)
{
    const auto run = unfinishedRun(logFolder(), destination.address);
    if (!run.has_value())
        return {};
    return "An earlier update of this printer was cut off (started " + run->started
        + "; its log has no end: " + run->file + "). The printer may have taken only a part of it.";
}

} // namespace

Outcome runUpdate(const PackageFacts& package, Workplace& place, Destination& destination)
{
    auto facts = begunFacts(destination);
    RunLock lock;
    takeLock(lock, package, place, destination, facts);
    const bool isLocked = facts.held.empty() && facts.stop == StopCause::none;
    const auto warning = isLocked ? unfinishedText(destination) : "";
    if (!warning.empty())
        place.report.warn(warning);
    if (isLocked && !place.options.yes)
        facts.stop = askPerson(place, question(package, place.choice, destination));
    if (!isLocked || facts.stop != StopCause::none)
        return concludeUpdate(package, facts);
    auto run = std::make_unique<FollowedRun>(package, place, destination);
    auto outcome = run->follow(std::move(lock));
    if (place.isThreadLeft)
        static_cast<void>(run.release()); // its worker keeps using it until the process ends
    outcome.warning = warning;
    const bool isUpdated = run != nullptr && outcome.verdict == Verdict::updated;
    if (place.options.verify.has_value() && isUpdated) {
        verify(package, place, destination, *place.options.verify, outcome);
        run->noteVerdict(outcome.verification);
    }
    return outcome;
}
