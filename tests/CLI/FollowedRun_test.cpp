// SPDX-License-Identifier: MIT
// A run as the command line follows it, over a scripted worker; UpdateCommand_test has the rest.
#include "CLI/FollowedRun.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedWorker.h"
#include "tests/support/TempFolder.h"

#include <condition_variable>
#include <gtest/gtest.h>
#include <new>

namespace {

struct SilentReport : Report {
    void waiting(const std::string& /*stage*/, double /*seconds*/) override { }
    void status(const StatusView& /*view*/) override
    {
        if (isOutOfMemory)
            throw std::bad_alloc();
    }
    void warn(const std::string& /*text*/) override { }
    void quiet(double /*silence*/, double /*seconds*/) override { ++quietLines; }
    void stopping(StopCause cause, double /*seconds*/) override { stop = cause; }
    void finish(const Outcome& /*outcome*/) override { }
    void finishBriefly(std::string_view /*line*/) override { }
    bool isOutOfMemory = false;
    int quietLines = 0;
    StopCause stop = StopCause::none;
};

// A worker that ends only when the test ends, as one does that waits for a silent printer.
class SilentWorker : public ScriptedWorker {
public:
    SilentWorker()
    {
        lookTakes = 1000;
        record.m_updateState = state_entered;
        atStop = [this] {
            std::unique_lock hold(m_lock);
            m_mayEnd.wait(hold, [this] { return m_isOver; });
        };
    }
    void end()
    {
        const std::lock_guard hold(m_lock);
        m_isOver = true;
        m_mayEnd.notify_all();
    }

private:
    std::mutex m_lock;
    std::condition_variable m_mayEnd;
    bool m_isOver = false;
};

struct Desk {
    Desk()
    {
        setenv("XDG_STATE_HOME", state.path().c_str(), 1);
        destination.run.takeAddress("192.0.2.7");
        destination.address = "192.0.2.7";
        package.portNumber = 9100;
    }
    TempFolder state;
    ScriptedTime time;
    Options options;
    Console console{-1, -1, -1};
    Session session;
    Display display{-1, true};
    SilentReport report;
    PacketTrace trace{nullptr, [] { return 0.0; }};
    Workplace place{options, console, session, display, report, trace, nullptr};
    PackageFacts package;
    Destination destination;
};

} // namespace

TEST(FollowedRun, LeavesAWorkerBehindThatHasSentNoFirmwareAndDoesNotEnd)
{
    SilentWorker worker;
    worker.mayRefuseFirmware = true;
    Desk desk;
    desk.session.setDeadline(3);
    FollowedRun run(desk.package, desk.place, desk.destination);
    const auto outcome = run.follow({});
    EXPECT_TRUE(desk.place.isThreadLeft);
    EXPECT_EQ(desk.report.stop, StopCause::deadline);
    EXPECT_EQ(outcome.exitCode, 130);
    EXPECT_FALSE(outcome.bytesWentOut);
    EXPECT_EQ(desk.place.bytesWentOut, false);
    worker.end();
}

TEST(FollowedRun, WaitsForAWorkerThatMayHaveSentFirmwareHoweverLongThatTakes)
{
    SilentWorker worker;
    worker.record.m_updateState = state_sending;
    worker.atLook = [&worker](std::size_t look) {
        if (look == 20)
            worker.end();
    };
    Desk desk;
    desk.session.setDeadline(3);
    FollowedRun run(desk.package, desk.place, desk.destination);
    run.follow({});
    EXPECT_FALSE(desk.place.isThreadLeft);
    EXPECT_GE(worker.looks, 20U);
    EXPECT_EQ(worker.stops, 1);
}

TEST(FollowedRun, HintsAtALongWaitOnlyWhileTheUpdateRuns)
{
    for (const auto state : {state_writing, state_failed}) {
        SilentWorker worker;
        worker.record.m_updateState = state;
        if (state == state_failed)
            worker.record.m_result = -6;
        worker.atLook = [&worker](std::size_t look) {
            if (look == 100)
                worker.end();
        };
        Desk desk;
        if (state == state_writing)
            desk.session.setDeadline(90);
        FollowedRun run(desk.package, desk.place, desk.destination);
        run.follow({});
        EXPECT_EQ(desk.report.quietLines, state == state_writing ? 1 : 0);
    }
}

TEST(FollowedRun, GoesOnWhereItsReportCannotBeMade)
{
    ScriptedWorker worker;
    worker.lookTakes = 1000;
    tag_devinfo done{};
    done.m_result = 1;
    done.m_updateState = state_done;
    done.m_updatedCount = 1;
    worker.records = {worker.record, done};
    Desk desk;
    desk.report.isOutOfMemory = true;
    FollowedRun run(desk.package, desk.place, desk.destination);
    EXPECT_EQ(run.follow({}).resultCode, -11); // nothing of it went out
    EXPECT_EQ(worker.stops, 1);
}
