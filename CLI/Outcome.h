// SPDX-License-Identifier: MIT
// The outcome of a command, as one value for both kinds of report: for people, and as JSON.
//
// Owns:      its texts, by value; all are safe to show.
// Invariant: the names of exit codes, decisions and reasons never change once released.
#pragma once
#include "CLI/Fleet/FleetSummary.h"
#include "CLI/Options.h"
#include "UI/Package/PackageFacts.h"
#include "UI/Run/RunHistory.h"
#include "UI/Run/UpdateRun.h"
#include "UI/Support/Finding.h"
#include "UI/Support/PrinterFacts.h"
#include "VYM/ModelDependCheckVer.h"

#include <optional>
#include <string>
#include <vector>

namespace exitcode {
constexpr int kDone = 0; // updated; a check found firmware to send; a requested text
constexpr int kObstacles = 1; // the doctor found a problem
constexpr int kNothingToUpdate = 2;
constexpr int kNotConfirmed = 3; // updated, but the printer did not come back to say so
constexpr int kNotInstalled = 4; // updated, but the printer came back with another version
constexpr int kEngineBase = 10; // plus the engine's result code without its sign
constexpr int kUsage = 64; // from sysexits.h
constexpr int kNoPackage = 66;
constexpr int kNoSuchPrinter = 68;
constexpr int kNoPrintServer = 69;
constexpr int kStopped = 130; // a shell's code for Ctrl-C
} // namespace exitcode

// The first word of the message for people.
enum class Verdict : std::uint8_t {
    shown, // a text or a package, without a verdict
    updated,
    updateAvailable,
    nothingToUpdate,
    refused,
    failed,
    stopped,
    wrongUsage,
    noPackage,
    listed, // printers
    noPrinter,
    history, // past runs
    ready, // the doctor found no problem
    obstacles,
    saved, // the report is in its file
};

enum class Decision : std::uint8_t { send, skip, refuse, undecided };
const char* decisionName(Decision decision);
Decision decisionOf(const VersionDecision& decision);

struct FirmwareOutcome {
    PackagedFirmware firmware;
    bool reached = false; // false: the run ended, or would end, at an earlier firmware
    Decision decision = Decision::undecided;
    VersionReason reason = VersionReason::undecided;
    std::optional<std::string> installed; // from the printer, if it was queried
    std::optional<std::string> installedAfter; // as the printer says after the update
    std::optional<int> resultCode;
    bool bytesWentOut = false;
    bool confirmed = false; // the printer reported that it has finished writing
    std::uint32_t bytesSent = 0;
    std::uint32_t bytesTotal = 0; // of its image
    std::string warning; // a possible later problem; empty if there is none
};

struct Outcome {
    Command command = Command::none;
    int exitCode = exitcode::kDone;
    Verdict verdict = Verdict::shown;
    std::string name;
    std::optional<int> resultCode; // the engine's, if it has one
    std::string title; // a few words; empty if the verdict suffices
    std::string message;
    NextStep next = NextStep::none;
    std::string address;
    std::string printerName; // of the queue that led to the printer
    std::string printerModel; // if the printer was queried for it
    bool bytesWentOut = false;
    bool areBytesUnknown = false; // the run ended before that could be learnt
    bool notPermitted = false; // there is a USB printer that this user may not open
    bool isOfFleet = false; // of a call for many printers, whether it came to run them or not
    std::vector<FirmwareOutcome> firmware;
    std::optional<PackageFacts> package; // for the command that shows it
    std::optional<PrinterFacts> printers; // for the command that lists them
    std::vector<PastRun> pastRuns; // for the command that lists them, or shows one
    std::string log; // the text of that one; or the report that is shown
    std::string warning; // for the whole run: the package is not for this system
    std::string verification; // a stable name; empty where none was wanted or possible
    std::vector<Finding> findings; // of the doctor
    std::optional<FleetSummary> fleet; // of a call that did
    double seconds = 0;
};

int exitCodeOf(int resultCode);
Outcome usageOutcome(const Options& options, std::string message);
Outcome packageOutcome(const Options& options, std::string problem);
// The given name matches no printer, or one that cannot be updated.
Outcome printerOutcome(const Options& options, std::string name, std::string problem);
