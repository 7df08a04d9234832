// From what was seen of a run to how it ended: exit code, name, message, next step, and what
// became of each firmware.
//
// Owns:    nothing; the facts stay the caller's for the length of a call.
// Threads: any. Pure functions.
#pragma once
#include "CLI/Outcome.h"
#include "DevConn/LinkTrace.h"
#include "VYM/CheckRun.h"
#include "VYM/vymThread.h"

enum class StopCause : std::uint8_t { none, user, deadline, answer, stall };

struct UpdateFacts {
    std::string address;
    std::string printerName;
    bool notPermitted = false; // the printer is on USB, and this user may not open it
    std::optional<ConnectProblem> connect; // of the last connection that was tried
    tag_devinfo lastRecord{};
    std::vector<tag_entryoutcome> outcomes; // of the firmware that were handled, in order
    std::optional<int> endCode; // where the run ended before anybody asked it to stop
    StopCause stop = StopCause::none;
    double stallLimit = 0; // seconds without progress, where they were the cause
};
Outcome concludeUpdate(const PackageFacts& package, const UpdateFacts& facts);

struct CheckFacts {
    std::string address;
    std::string printerName;
    bool notPermitted = false; // as above
    std::optional<ConnectProblem> connect; // as above
    CheckReport report;
    StopCause stop = StopCause::none;
};
Outcome concludeCheck(const PackageFacts& package, const CheckFacts& facts);

// A list of printers; and a stop before it was there, whatever it was wanted for.
Outcome concludePrinters(PrinterFacts facts);
Outcome concludeLookupStopped(Command command, StopCause stop);
// A stop while the package was being read.
Outcome concludeReadingStopped(Command command, StopCause stop);
