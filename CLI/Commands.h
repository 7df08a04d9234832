// SPDX-License-Identifier: MIT
// The commands that work on a package. Each runs to its end and returns its outcome; all output
// goes through the report.
//
// Threads: the caller's; the engine's work runs on threads that are joined before the return.
#pragma once
#include "CLI/PacketTrace.h"
#include "CLI/Report.h"
#include "CLI/Session.h"
#include "CLI/Terminal.h"
#include "Platform/PrintServer.h"
#include "UI/Run/RunTarget.h"
#include "UI/Support/Doctor.h"
#include "VYM/EntryChoice.h"

// The environment of a command; the caller owns all of it.
struct Workplace {
    const Options& options;
    const Console& console;
    Session& session;
    Display& display;
    Report& report;
    PacketTrace& trace;
    PrintServer* printServer; // null: this system has no print queues
    EntryChoice choice = {}; // the firmware to update
    const PrintQueue* queue = nullptr; // that the call for many printers has found already
    std::string systemRemark = {}; // what the package's bounds say of this system; may be empty
    // Whether bytes of firmware may have left; no value while that is not known.
    std::optional<bool> bytesWentOut = false;
    // A thread that only reads still waits for an answer: the process ends without it.
    bool isThreadLeft = false;
};

// The printer of a check or an update.
struct Destination {
    RunTarget run;
    std::string address; // as shown
    std::string printerName; // of its queue; empty without one
};

Outcome runInfo(const PackageFacts& package);
Outcome runHistory(const Options& options); // needs no package
// Both say what is wrong with the package, too.
Outcome runDoctor(const OpenedPackage& opened, Workplace& place);
Outcome runReport(const OpenedPackage& opened, Workplace& place);
doctor::Request doctorRequest(const Workplace& place);
Outcome runPrinters(Workplace& place);
Outcome runCheck(const PackageFacts& package, Workplace& place, Destination& destination);
Outcome runUpdate(const PackageFacts& package, Workplace& place, Destination& destination);
// Why the update must not start; StopCause::none after a "yes".
StopCause askPerson(Workplace& place, const std::string& question);
