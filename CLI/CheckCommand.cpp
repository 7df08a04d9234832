#include "CLI/BackgroundTask.h"
#include "CLI/Commands.h"
#include "UI/Printers/PrinterCheck.h"
#include "UI/vym_etc.h"

namespace {

constexpr const char* kStage = "Asking the printer";

} // namespace

Outcome runCheck(const PackageFacts& package, Workplace& place, Destination& destination)
{
    CheckFacts facts;
    facts.address = destination.address;
    facts.printerName = destination.printerName;
    std::atomic<bool> stop{false};
    place.report.waiting(kStage, place.session.seconds());
    {
        BackgroundTask task;
        task.start(place.session, [&] {
            facts.report =
                vymCheck_Run(destination.run.queue(), destination.run.port(),
                             static_cast<unsigned short>(package.portNumber), stop, place.choice);
        });
        while (!task.isDone()) {
            const auto wake = place.session.wait();
            if (wake == Wake::tick)
                place.report.waiting(kStage, place.session.seconds());
            if (wake != Wake::signal && wake != Wake::deadline)
                continue;
            if (!stop.exchange(true))
                facts.stop = wake == Wake::signal ? StopCause::user : StopCause::deadline;
            place.report.stopping(facts.stop, place.session.seconds());
        }
    }
    facts.connect = place.trace.lastConnect();
    facts.notPermitted = isForbiddenPort(destination.run.port());
    return concludeCheck(package, facts);
}
