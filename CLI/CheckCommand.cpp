// SPDX-License-Identifier: MIT
#include "CLI/BackgroundTask.h"
#include "CLI/Commands.h"
#include "UI/Printers/PrinterCheck.h"
#include "UI/vym_etc.h"

#include <limits>
#include <memory>
#include <new>

namespace {

constexpr const char* kStage = "Asking the printer";

// All data of the thread that checks, so that it can outlive the wait for it.
struct Check {
    Check(const Destination& destination, EntryChoice chosen)
        : target(destination.run), choice(std::move(chosen))
    {
    }
    RunTarget target;
    const EntryChoice choice;
    std::atomic<bool> stop{false};
    CheckReport report{};
    BackgroundTask task; // last, so that it ends before its data
};

// Waits for the check; after a stop request not for long, since it writes no firmware.
StopCause watch(Check& check, Workplace& place)
{
    auto cause = StopCause::none;
    auto leaveAt = std::numeric_limits<double>::infinity();
    while (!check.task.isDone() && place.session.seconds() < leaveAt) {
        const auto wake = place.session.wait(leaveAt);
        if (wake == Wake::tick)
            place.report.waiting(kStage, place.session.seconds());
        if (wake != Wake::signal && wake != Wake::deadline)
            continue;
        if (!check.stop.exchange(true)) {
            cause = wake == Wake::signal ? StopCause::user : StopCause::deadline;
            leaveAt = place.session.seconds() + kLeavingGrace;
        }
        place.report.stopping(cause, place.session.seconds());
    }
    return cause;
}

} // namespace

Outcome runCheck(const PackageFacts& package, Workplace& place, Destination& destination)
{
    CheckFacts facts;
    facts.address = destination.address;
    facts.printerName = destination.printerName;
    place.report.waiting(kStage, place.session.seconds());
    auto check = std::make_unique<Check>(destination, place.choice);
    const auto portNumber = static_cast<unsigned short>(package.portNumber);
    check->task.start(place.session, [&each = *check, portNumber] {
        each.report = vymCheck_Run(each.target.queue(), each.target.port(), portNumber, each.stop,
                                   each.choice);
    });
    facts.stop = watch(*check, place);
    if (!check->task.isDone()) {
        place.isThreadLeft = true;
        static_cast<void>(check.release()); // its thread keeps using it until the process ends
        facts.report.result = result::kSystem;
        return concludeCheck(package, facts);
    }
    if (check->task.hasFailed())
        throw std::bad_alloc();
    facts.report = std::move(check->report);
    facts.link = linkFacts(place.trace, destination.run.port());
    return concludeCheck(package, facts);
}
