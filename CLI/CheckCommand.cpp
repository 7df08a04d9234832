#include "CLI/BackgroundTask.h"
#include "CLI/Commands.h"
#include "UI/vym_etc.h"

Outcome runCheck(const PackageFacts& package, Workplace& place)
{
    CheckFacts facts;
    facts.address = place.options.address.value_or("");
    auto address = facts.address; // the engine takes a text that may be written to
    std::atomic<bool> stop{false};
    place.report.asking(place.session.seconds());
    {
        BackgroundTask task;
        task.start(place.session, [&] {
            facts.report = vymCheck_Run(nullptr, address.data(),
                                        static_cast<unsigned short>(package.portNumber), stop);
        });
        while (!task.isDone()) {
            const auto wake = place.session.wait();
            if (wake == Wake::tick)
                place.report.asking(place.session.seconds());
            if (wake != Wake::signal && wake != Wake::deadline)
                continue;
            if (!stop.exchange(true))
                facts.stop = wake == Wake::signal ? StopCause::user : StopCause::deadline;
            place.report.stopping(facts.stop, place.session.seconds());
        }
    }
    return concludeCheck(package, facts);
}
