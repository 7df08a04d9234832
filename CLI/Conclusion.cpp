// SPDX-License-Identifier: MIT
#include "CLI/Conclusion.h"

#include "CLI/Messages.h"
#include "UI/Support/UdevRule.h"
#include "UI/Text/PlainText.h"
#include "VYM/ProtocolResult.h"

#include <algorithm>
#include <cmath>

namespace {

bool isPlainEnd(int code)
{
    return code == result::kSuccess || code == result::kNotApplicable;
}

// Facts are those of a check or of an update.
template <class Facts>
Outcome begunOutcome(const PackageFacts& package, Command command, const Facts& facts)
{
    Outcome outcome;
    outcome.command = command;
    outcome.address = facts.address;
    outcome.printerName = facts.printerName;
    outcome.notPermitted = facts.link.notPermitted;
    for (const auto& firmware : package.firmware) {
        outcome.firmware.emplace_back();
        outcome.firmware.back().firmware = firmware;
        outcome.firmware.back().bytesTotal = static_cast<std::uint32_t>(firmware.bytes.value_or(0));
    }
    return outcome;
}

// The list's entry for a firmware's number; null if no firmware has it.
FirmwareOutcome* firmwareAt(Outcome& outcome, std::uint32_t number)
{
    return number >= 1 && number <= outcome.firmware.size() ? &outcome.firmware[number - 1]
                                                            : nullptr;
}

bool isUnconfirmed(const FirmwareOutcome& firmware)
{
    return firmware.bytesWentOut && !firmware.confirmed;
}

bool hasUnconfirmed(const Outcome& outcome)
{
    return std::any_of(outcome.firmware.begin(), outcome.firmware.end(), isUnconfirmed);
}

// Not sent because of its version, without an error: the worker goes on as if it had been sent.
bool isPassedOver(const FirmwareOutcome& firmware)
{
    return firmware.reached && firmware.decision == Decision::skip
        && firmware.resultCode == result::kSuccess;
}

std::string firmwareText(const FirmwareOutcome& outcome)
{
    return "firmware " + std::to_string(outcome.firmware.number) + " ("
        + outcome.firmware.displayName + ")";
}

// "Firmware 1 (Main) and firmware 2 (Engine) were sent and confirmed. ", or empty.
std::string confirmedText(const Outcome& outcome)
{
    std::vector<std::string> names;
    for (const auto& firmware : outcome.firmware) {
        if (firmware.bytesWentOut && firmware.confirmed)
            names.push_back(firmwareText(firmware));
    }
    if (names.empty())
        return {};
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    text.front() = 'F';
    return text + (names.size() == 1 ? " was" : " were") + " sent and confirmed. ";
}

// The bytes that are known to have been sent, if that is in doubt.
std::string sentText(const Outcome& outcome)
{
    const auto& all = outcome.firmware;
    const bool isMore =
        std::any_of(all.begin(), all.end(), [](const auto& each) { return each.bytesSent != 0; });
    return isMore ? "Firmware had already been sent"
                  : "The first bytes of a firmware may already have gone out";
}

MessageFacts factsOf(const PackageFacts& package, const Outcome& outcome)
{
    MessageFacts facts;
    facts.address = outcome.address;
    facts.model = package.model;
    facts.printer =
        outcome.printerModel.empty() ? "another one" : "the model " + outcome.printerModel;
    facts.firmware = "a firmware";
    facts.permission = udevAdvice();
    facts.port = std::to_string(package.portNumber);
    facts.place = "before any firmware was sent";
    facts.sent = sentText(outcome);
    facts.count = std::to_string(outcome.firmware.size());
    return facts;
}

void say(Outcome& outcome, std::string_view messageKey, const MessageFacts& facts)
{
    outcome.message = englishText(messageKey, facts);
    const auto advice = adviceText(outcome.next, messageKey, facts);
    if (!advice.empty())
        outcome.message += " " + advice;
}

std::string_view unconnectedKey(const Outcome& outcome, const LinkFacts& link)
{
    if (outcome.notPermitted)
        return "NotPermitted";
    if (!link.usedBy.empty())
        return "InUse";
    switch (link.connect.value_or(ConnectProblem::other)) {
    case ConnectProblem::none:
        return "LostEarly";
    case ConnectProblem::unknownHost:
        return "UnknownHost";
    case ConnectProblem::refused:
        return "Refused";
    case ConnectProblem::timedOut:
        return "TimedOut";
    case ConnectProblem::noRoute:
        return "NoRoute";
    default:
        return "Unreachable";
    }
}

// Whether the message says how far the connection came: no firmware went out, and the run had not
// come to one, or the printer is known to have been reached.
bool isLostEarly(const FirmwareOutcome* last, const Outcome& outcome, const LinkFacts& link)
{
    return !outcome.bytesWentOut && (last == nullptr || link.connect == ConnectProblem::none);
}

// Selects the message of a result: the text of its code, or a better one if more is known.
std::string_view messageKeyOf(int code, const FirmwareOutcome* last, const Outcome& outcome,
                              const LinkFacts& link, bool automaticEnd)
{
    if (code == result::kBadReply && last != nullptr
        && last->reason == VersionReason::unreadableVersion)
        return "UnreadableVersion";
    if (code == result::kDeviceError && last != nullptr && isPassedOver(*last))
        return "OtherSeries";
    if (code == result::kBadReply && link.isAnswered.has_value())
        return *link.isAnswered ? "UnusableAnswer" : "NoAnswer";
    if (code == result::kConnectionLost && isLostEarly(last, outcome, link))
        return unconnectedKey(outcome, link);
    if (code == result::kSuccess && automaticEnd && hasUnconfirmed(outcome))
        return "NormalEnd_Unconfirmed";
    return resultText(code, automaticEnd).messageKey;
}

std::string_view titleKeyOf(std::string_view messageKey, int code, bool automaticEnd)
{
    if (messageKey == "NotPermitted")
        return "NotPermittedTitle";
    if (messageKey == "OtherSeries")
        return "OtherSeriesTitle";
    for (const auto* unconnected :
         {"InUse", "UnknownHost", "Refused", "TimedOut", "NoRoute", "Unreachable"}) {
        if (messageKey == unconnected)
            return "UnreachableTitle";
    }
    return resultText(code, automaticEnd).titleKey;
}

void concludeWith(Outcome& outcome, int code, const PackageFacts& package,
                  const FirmwareOutcome* last, const LinkFacts& link, MessageFacts facts)
{
    facts.programs = link.usedBy;
    if (last != nullptr)
        facts.firmware = firmwareText(*last);
    const bool automaticEnd = package.needsExitOperation == yesno_no;
    const auto key = messageKeyOf(code, last, outcome, link, automaticEnd);
    outcome.resultCode = code;
    outcome.exitCode = exitCodeOf(code);
    outcome.name = resultName(code);
    outcome.title = englishText(titleKeyOf(key, code, automaticEnd), facts);
    // Confirmed firmware is certain, whatever happened after it.
    outcome.next = nextStep(code, hasUnconfirmed(outcome));
    const bool isOfPackage = key == "UnreadableVersion" || key == "OtherSeries";
    if (isOfPackage && outcome.next == NextStep::retry)
        outcome.next = NextStep::chooseOtherPackage; // a retry would end in the same way
    say(outcome, key, facts);
    if (!isPlainEnd(code) && outcome.next != NextStep::checkPrinter)
        outcome.message = confirmedText(outcome) + outcome.message;
}

void concludeStopped(Outcome& outcome, StopCause cause, bool unconfirmed, const MessageFacts& facts)
{
    outcome.exitCode = exitcode::kStopped;
    outcome.verdict = Verdict::stopped;
    outcome.name = "stopped";
    outcome.next = unconfirmed ? NextStep::checkPrinter : NextStep::retry;
    const auto* key = "StoppedByUser";
    if (cause == StopCause::deadline)
        key = "StoppedByDeadline";
    else if (cause == StopCause::answer)
        key = "StoppedByAnswer";
    else if (cause == StopCause::stall)
        key = "StoppedByStall";
    say(outcome, key, facts);
}

// place: where the run was, before it had to do with a printer.
Outcome stoppedEarly(Command command, StopCause cause, const std::string& place)
{
    Outcome outcome;
    outcome.command = command;
    MessageFacts words;
    words.place = place;
    words.address = "any printer"; // for a no to many printers; one has its address by then
    concludeStopped(outcome, cause, false, words);
    return outcome;
}

void takeEntry(Outcome& outcome, const tag_entryoutcome& entry)
{
    // Also for a number that the package does not have: what went out is never denied.
    outcome.bytesWentOut = outcome.bytesWentOut || entry.m_bytesWentOut;
    auto* firmware = firmwareAt(outcome, entry.m_number);
    if (firmware == nullptr)
        return;
    const VersionDecision decision{entry.m_reason == VersionReason::applies, entry.m_result,
                                   entry.m_reason};
    firmware->reached = true;
    firmware->decision = decisionOf(decision);
    firmware->reason = entry.m_reason;
    firmware->resultCode = entry.m_result;
    firmware->bytesWentOut = entry.m_bytesWentOut;
    firmware->confirmed = entry.m_confirmed;
    firmware->bytesSent = entry.m_bytesSent;
    if (entry.m_bytesWentOut)
        firmware->bytesTotal = entry.m_bytesTotal;
}

// Where a run was when it ended early.
std::string placeOf(const FirmwareOutcome* last)
{
    if (last == nullptr)
        return "before any firmware was sent";
    const auto firmware = firmwareText(*last);
    if (!last->bytesWentOut)
        return "before " + firmware + " was sent";
    if (last->confirmed)
        return "after the printer had written " + firmware;
    const bool isWhole = last->resultCode == result::kSuccess;
    if (!isWhole && last->bytesSent == 0)
        return "when the sending of " + firmware + " began";
    return isWhole ? "after " + firmware + " had been sent, before the printer confirmed it"
                   : "while " + firmware + " was being sent (" + std::to_string(last->bytesSent)
            + " of " + std::to_string(last->bytesTotal) + " bytes)";
}

// The error of a run after a stop request, if firmware was on its way: the user then has to know
// the error, not that the run was stopped.
std::optional<int> errorAfterStop(const Outcome& outcome, const tag_devinfo& record)
{
    if (!outcome.bytesWentOut)
        return std::nullopt;
    if (!isPlainEnd(record.m_result))
        return record.m_result;
    return record.m_updateState == state_failed ? std::optional(result::kSystem) : std::nullopt;
}

// Another update of the printer goes on here, so this one did not begin.
void concludeHeld(Outcome& outcome, std::string held, MessageFacts facts)
{
    held.front() = 'A';
    facts.holder = std::move(held);
    outcome.resultCode = result::kBusy;
    outcome.exitCode = exitCodeOf(result::kBusy);
    outcome.verdict = Verdict::failed;
    outcome.name = resultName(result::kBusy);
    outcome.title = englishText(resultText(result::kBusy, true).titleKey, facts);
    outcome.next = NextStep::retry;
    say(outcome, "UpdateIsRunning", facts);
}

bool isWhollyConfirmed(const Outcome& outcome)
{
    const auto& all = outcome.firmware;
    return outcome.bytesWentOut && std::all_of(all.begin(), all.end(), [](const auto& firmware) {
               return firmware.reached && !isUnconfirmed(firmware);
           });
}

// A run ends no better than the firmware of which anything went out.
int provenEnd(const UpdateFacts& facts)
{
    for (const auto& entry : facts.outcomes) {
        if (entry.m_bytesWentOut && entry.m_result != result::kSuccess)
            return isPlainEnd(entry.m_result) ? result::kSystem : entry.m_result;
    }
    return result::kSuccess;
}

// The code of a run; empty if it was stopped.
std::optional<int> codeOf(const Outcome& outcome, const UpdateFacts& facts)
{
    if (!facts.endCode.has_value()) {
        const auto error = errorAfterStop(outcome, facts.lastRecord);
        // The request came too late to have an effect.
        return !error.has_value() && isWhollyConfirmed(outcome) ? provenEnd(facts) : error;
    }
    // For the worker a version of another series counts as updated, though it is not sent.
    if (facts.endCode == result::kSuccess)
        return outcome.bytesWentOut ? provenEnd(facts) : result::kNotApplicable;
    return facts.endCode;
}

const FirmwareOutcome* lastReached(const Outcome& outcome)
{
    const FirmwareOutcome* last = nullptr;
    for (const auto& firmware : outcome.firmware)
        last = firmware.reached ? &firmware : last;
    return last;
}

void takeChecked(Outcome& outcome, const CheckedEntry& entry)
{
    auto* firmware = firmwareAt(outcome, entry.number);
    if (firmware == nullptr)
        return;
    firmware->reached = entry.reached;
    firmware->decision = decisionOf(entry.decision);
    firmware->reason = entry.decision.reason;
    firmware->installed = plainText(entry.installedVersion);
    firmware->resultCode = entry.decision.code;
}

// An update queries the status after such a firmware, too; no rule defines the printer's answer.
void warnOfPrinter(Outcome& outcome)
{
    for (auto& firmware : outcome.firmware) {
        if (isPassedOver(firmware))
            firmware.warning = englishText("OnlyThePrinter", {});
    }
}

// The firmware at which an update would end with an error, or null.
const FirmwareOutcome* firstRefused(const Outcome& outcome)
{
    const auto refused =
        std::find_if(outcome.firmware.begin(), outcome.firmware.end(), [](const auto& firmware) {
            return firmware.reached && firmware.decision != Decision::send
                && firmware.decision != Decision::skip;
        });
    return refused != outcome.firmware.end() ? &*refused : nullptr;
}

void concludeDecided(Outcome& outcome, MessageFacts facts)
{
    const auto count =
        std::count_if(outcome.firmware.begin(), outcome.firmware.end(), [](const auto& each) {
            return each.reached && each.decision == Decision::send;
        });
    facts.number = std::to_string(count);
    outcome.resultCode = count != 0 ? result::kSuccess : result::kNotApplicable;
    outcome.exitCode = exitCodeOf(*outcome.resultCode);
    outcome.verdict = count != 0 ? Verdict::updateAvailable : Verdict::nothingToUpdate;
    outcome.name = count != 0 ? "update-available" : resultName(result::kNotApplicable);
    say(outcome, count != 0 ? "UpdateAvailable" : "NothingAvailable", facts);
}

std::string foundText(const PrinterFacts& facts)
{
    const auto others = facts.found - facts.candidates;
    auto text = (facts.candidates != 0 ? std::to_string(facts.candidates) : "none")
        + " can be updated from this package.";
    if (others != 0 && !facts.all)
        text += " " + std::to_string(others) + " more cannot: add --all to see them, and why.";
    if (facts.notPermitted != 0)
        text += " " + std::to_string(facts.notPermitted) + " may not be opened by this user. "
            + udevAdvice();
    return text;
}

Verdict verdictOf(int code)
{
    if (code == result::kSuccess)
        return Verdict::updated;
    return code == result::kNotApplicable ? Verdict::nothingToUpdate : Verdict::failed;
}

} // namespace

Outcome concludeUpdate(const PackageFacts& package, const UpdateFacts& facts)
{
    auto outcome = begunOutcome(package, Command::update, facts);
    outcome.printerModel = facts.printerModel;
    for (const auto& entry : facts.outcomes)
        takeEntry(outcome, entry);
    const auto* last = lastReached(outcome);
    auto words = factsOf(package, outcome);
    words.place = placeOf(last);
    if (!facts.held.empty()) {
        concludeHeld(outcome, facts.held, words);
        return outcome;
    }
    if (const auto code = codeOf(outcome, facts); code.has_value()) {
        outcome.verdict = verdictOf(*code);
        concludeWith(outcome, *code, package, last, facts.link, words);
        return outcome;
    }
    words.number = std::to_string(std::lround(facts.stallLimit));
    concludeStopped(outcome, facts.stop, hasUnconfirmed(outcome), words);
    return outcome;
}

Outcome concludeCheck(const PackageFacts& package, const CheckFacts& facts)
{
    auto outcome = begunOutcome(package, Command::check, facts);
    outcome.printerModel = plainText(facts.report.printerModel);
    const bool isComplete = facts.report.result == result::kSuccess
        && facts.report.entries.size() >= package.firmware.size();
    auto words = factsOf(package, outcome);
    if (facts.stop != StopCause::none && !isComplete) {
        words.place = "before the printer had answered";
        concludeStopped(outcome, facts.stop, false, words);
        return outcome;
    }
    for (const auto& entry : facts.report.entries)
        takeChecked(outcome, entry);
    if (facts.report.reportsWriting)
        warnOfPrinter(outcome);
    const auto* refused = firstRefused(outcome);
    words.place = "during the check";
    if (facts.report.result != result::kSuccess) {
        outcome.verdict = verdictOf(facts.report.result);
        concludeWith(outcome, facts.report.result, package, nullptr, facts.link, words);
    } else if (refused != nullptr) {
        outcome.verdict = Verdict::refused;
        concludeWith(outcome, refused->resultCode.value_or(result::kSystem), package, refused,
                     facts.link, words);
    } else
        concludeDecided(outcome, words);
    return outcome;
}

Outcome concludePrinters(PrinterFacts facts)
{
    Outcome outcome;
    outcome.command = Command::printers;
    outcome.verdict = Verdict::listed;
    outcome.name = "printers-listed";
    outcome.message = foundText(facts);
    outcome.notPermitted = facts.notPermitted != 0;
    if (!facts.serverProblem.empty()) {
        outcome.exitCode = exitcode::kNoPrintServer;
        outcome.verdict = Verdict::failed;
        outcome.name = "print-server-unreachable";
        outcome.title = "no print queues";
        outcome.message = "The print server could not be asked: " + facts.serverProblem
            + " Of the printers on USB, " + outcome.message;
        outcome.next = NextStep::retry;
    }
    outcome.printers = std::move(facts);
    return outcome;
}

Outcome concludeLookupStopped(Command command, StopCause stop)
{
    return stoppedEarly(command, stop, "before it was known which printers there are");
}

Outcome concludeHostLookupStopped(Command command, StopCause stop)
{
    return stoppedEarly(command, stop, "before the printer's address was known");
}

Outcome concludeReadingStopped(Command command, StopCause stop)
{
    return stoppedEarly(command, stop,
                        command == Command::update ? "before any firmware was sent"
                                                   : "while the package was being read");
}
