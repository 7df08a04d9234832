// SPDX-License-Identifier: MIT
#include "CLI/PrinterLookup.h"

#include "CLI/BackgroundTask.h"
#include "UI/DevConnMgrController.h"
#include "UI/Text/PlainText.h"

#include <limits>
#include <new>

namespace {

// The time for an unwanted query to end by itself; most do within it.
constexpr double kSearchGrace = 1;

// The current query: one thread sets it, another shows it.
class Whereabouts : public PrinterSearchObserver {
public:
    explicit Whereabouts(Session& session) : m_session(session) { }
    void askingPrintServer() override { say("Asking the print server"); }
    void lookingOnUsb() override { say("Looking for printers on USB"); }
    void askingDevice(const PrinterInfo& printer) override
    {
        say("Asking " + plainText(printer.printerName().value_or("")) + " ("
            + plainText(printer.printerURI().value_or("")) + ")");
    }
    [[nodiscard]] std::string stage() const
    {
        const HoldLock hold(m_lock);
        return m_stage;
    }

private:
    void say(std::string stage)
    {
        {
            const HoldLock hold(m_lock);
            m_stage = std::move(stage);
        }
        m_session.notify();
    }
    Session& m_session;
    mutable CRITSECT m_lock;
    std::string m_stage VYM_GUARDED_BY(m_lock);
};

// All data of the search thread, so that the thread can outlive the wait for it.
struct Lookup {
    explicit Lookup(Session& session) : whereabouts(session) { }
    PrinterSearch search;
    std::atomic<bool> cancel{false};
    Whereabouts whereabouts;
    TargetPrinters made;
    BackgroundTask task; // last, so that it ends before its data
};

void start(Lookup& lookup, Workplace& place)
{
    devConnMgr_Instance(); // makes it before another thread uses it
    lookup.search = packagedPrinterSearch(place.printServer);
    lookup.task.start(place.session, [&lookup] {
        lookup.made = makeTargetPrinterList(lookup.search, lookup.cancel, lookup.whereabouts);
    });
}

// Why the wait ended before the search; StopCause::none if it did not.
StopCause watch(Lookup& lookup, Workplace& place)
{
    auto stop = StopCause::none;
    auto leaveAt = std::numeric_limits<double>::infinity();
    while (!lookup.task.isDone() && place.session.seconds() < leaveAt) {
        const auto wake = place.session.wait();
        if (lookup.cancel)
            continue;
        place.report.waiting(lookup.whereabouts.stage(), place.session.seconds());
        if (wake != Wake::signal && wake != Wake::deadline)
            continue;
        lookup.cancel = true;
        leaveAt = place.session.seconds() + kSearchGrace;
        stop = wake == Wake::signal ? StopCause::user : StopCause::deadline;
    }
    return stop;
}

} // namespace

LookupResult lookUpPrinters(Workplace& place)
{
    auto lookup = std::make_unique<Lookup>(place.session);
    start(*lookup, place);
    const auto stop = watch(*lookup, place);
    if (!lookup->task.isDone()) {
        place.isThreadLeft = true;
        static_cast<void>(lookup.release()); // its thread keeps using it until the process ends
        return {{}, stop};
    }
    if (lookup->task.hasFailed())
        throw std::bad_alloc();
    return {std::move(lookup->made), stop};
}
