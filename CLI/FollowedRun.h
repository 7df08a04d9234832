// SPDX-License-Identifier: MIT
// An update, followed for the command line: shows each look at it, handles stop requests, waits
// until it has ended, concludes.
//
// Owns:      the run and, while the worker ends, a thread.
// Threads:   the command's own.
// Invariant: once firmware may be on its way, the worker is waited for, however long it takes and
//            whatever cannot be shown meanwhile. Before that, a worker that waits for a silent
//            printer is left behind after kLeavingGrace.
#pragma once
#include "CLI/BackgroundTask.h"
#include "CLI/Commands.h"
#include "Platform/SleepInhibitor.h"
#include "UI/Run/WatchedRun.h"

#include <memory>

class FollowedRun {
public:
    FollowedRun(const PackageFacts& package, Workplace& place, Destination& destination);
    // lock: of the printer; may be one that was not taken. If the worker was left behind, sets
    // place.isThreadLeft: this object must then live until the process ends.
    Outcome follow(RunLock lock);
    // After the end, for the log: what the printer's versions have shown since.
    void noteVerdict(const std::string& verdict) { m_run.log().verdict(verdict); }

private:
    void noteBeginning();
    void watch();
    void askToStop();
    bool leaveBehind();
    void show(const RunStep& step);
    void hear(Wake wake);
    void watchQuiet();
    void stopFor(StopCause cause, std::string_view note);
    void takeResult();
    [[nodiscard]] std::string displayNameOf(const tag_devinfo& record) const;

    const PackageFacts& m_package;
    Workplace& m_place;
    UpdateFacts m_facts;
    RunTarget m_target;
    WatchedRun m_run;
    bool m_isQuiet = false; // the report says so
    double m_leaveAt; // on the session's clock
    const SleepInhibitor m_awake{"Vymkit", "A printer's firmware is being updated"};
    BackgroundTask m_stopping; // last, so that it ends before its data
};
