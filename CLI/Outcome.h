// How a command ended, as one value that both kinds of report show: for people, and as JSON.
//
// Owns:      its texts, by value; all of them fit to be shown.
// Invariant: the names of exit codes, decisions and reasons never change once released.
#pragma once
#include "CLI/Options.h"
#include "CLI/PrinterFacts.h"
#include "UI/Package/PackageFacts.h"
#include "UI/Run/RunHistory.h"
#include "UI/Run/UpdateRun.h"
#include "VYM/ModelDependCheckVer.h"

#include <optional>
#include <string>
#include <vector>

namespace exitcode {
constexpr int kDone = 0; // updated; a check that found something to send; a text that was asked for
constexpr int kNothingToUpdate = 2;
constexpr int kEngineBase = 10; // plus the engine's result code without its sign
constexpr int kUsage = 64; // as sysexits.h counts
constexpr int kNoPackage = 66;
constexpr int kNoSuchPrinter = 68;
constexpr int kNoPrintServer = 69;
constexpr int kStopped = 130; // as a shell reports Ctrl-C
} // namespace exitcode

// The word that the message for people begins with.
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
};

enum class Decision : std::uint8_t { send, skip, refuse, undecided };
const char* decisionName(Decision decision);
Decision decisionOf(const VersionDecision& decision);

struct FirmwareOutcome {
    PackagedFirmware firmware;
    bool reached = false; // false: the run ended, or would end, at a firmware before it
    Decision decision = Decision::undecided;
    VersionReason reason = VersionReason::undecided;
    std::optional<std::string> installed; // as the printer says, where it was asked
    std::optional<int> resultCode;
    bool bytesWentOut = false;
    bool confirmed = false; // the printer reported that it has finished writing
    std::uint32_t bytesSent = 0;
    std::uint32_t bytesTotal = 0; // of its image
    std::string warning; // what may go wrong although nothing is wrong yet; empty without one
};

struct Outcome {
    Command command = Command::none;
    int exitCode = exitcode::kDone;
    Verdict verdict = Verdict::shown;
    std::string name;
    std::optional<int> resultCode; // the engine's, where the engine came to one
    std::string title; // a few words; empty where the verdict says it all
    std::string message;
    NextStep next = NextStep::none;
    std::string address;
    std::string printerName; // of the queue that led to the printer
    std::string printerModel; // where the printer was asked for it
    bool bytesWentOut = false;
    std::vector<FirmwareOutcome> firmware;
    std::optional<PackageFacts> package; // for the command that shows it
    std::optional<PrinterFacts> printers; // for the command that lists them
    std::vector<PastRun> pastRuns; // for the command that lists them, or shows one
    std::string log; // the text of that one
    bool notPermitted = false; // a USB printer is there that this user may not open
    std::string warning; // of the whole: this system is not one that the package is for
    double seconds = 0;
};

int exitCodeOf(int resultCode);
Outcome usageOutcome(const Options& options, std::string message);
Outcome packageOutcome(const Options& options, std::string problem);
// No printer is meant by the words that name one, or one that cannot be updated.
Outcome printerOutcome(const Options& options, std::string name, std::string problem);
