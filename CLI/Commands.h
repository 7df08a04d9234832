// The commands that work on a package. Each of them runs to its end and says how it ended; none
// of them writes anything but through the report.
//
// Threads: the caller's; the engine's work runs on threads that are joined before the return.
#pragma once
#include "CLI/Report.h"
#include "CLI/Session.h"
#include "CLI/Terminal.h"

// What a command works with; all of it stays the caller's.
struct Workplace {
    const Options& options;
    const Console& console;
    Session& session;
    Display& display;
    Report& report;
};

Outcome runInfo(const PackageFacts& package);
Outcome runCheck(const PackageFacts& package, Workplace& place);
Outcome runUpdate(const PackageFacts& package, Workplace& place);
