// SPDX-License-Identifier: MIT
// Turns the facts of a run into its outcome: exit code, name, message, next step, and the outcome
// of each firmware.
//
// Owns:    nothing; the caller owns the facts and keeps them during a call.
// Threads: any. Pure functions.
#pragma once
#include "CLI/LinkFacts.h"
#include "CLI/Outcome.h"
#include "VYM/CheckRun.h"
#include "VYM/vymThread.h"

enum class StopCause : std::uint8_t { none, user, deadline, answer, stall };

struct UpdateFacts {
    std::string address;
    std::string printerName;
    LinkFacts link;
    tag_devinfo lastRecord{};
    std::vector<tag_entryoutcome> outcomes; // of the firmware that were handled, in order
    std::optional<int> endCode; // if the run ended before a stop request
    StopCause stop = StopCause::none;
    double stallLimit = 0; // seconds without progress, if they were the cause
    std::string printerModel; // made plain; empty if the printer was not queried for it
    std::string held; // "another update of this printer is running here": there was no run
};
Outcome concludeUpdate(const PackageFacts& package, const UpdateFacts& facts);

struct CheckFacts {
    std::string address;
    std::string printerName;
    LinkFacts link;
    CheckReport report;
    StopCause stop = StopCause::none;
};
Outcome concludeCheck(const PackageFacts& package, const CheckFacts& facts);

// For a list of printers; and for a stop before it was ready, whatever its purpose.
Outcome concludePrinters(PrinterFacts facts);
Outcome concludeLookupStopped(Command command, StopCause stop);
// For a stop while a host's name was being looked up.
Outcome concludeHostLookupStopped(Command command, StopCause stop);
// For a stop while the package was being read.
Outcome concludeReadingStopped(Command command, StopCause stop);
