// SPDX-License-Identifier: MIT
#include "CLI/Messages.h"

#include "VYM/ProtocolResult.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

struct KeyText {
    std::string_view key;
    std::string_view text;
};

constexpr std::array kTexts = {
    KeyText{"State_Connection", "Connecting to the printer"},
    KeyText{"State_CheckVersion", "Checking the installed version"},
    KeyText{"State_CheckVersion_Plural", "Checking firmware {number} of {count}"},
    KeyText{"State_PrepUpdate", "Sending the firmware"},
    KeyText{"State_PrepUpdate_Plural", "Sending firmware {number} of {count}"},
    KeyText{"State_WriteUpdate", "Writing the firmware"},
    KeyText{"State_WriteUpdate_Plural", "Writing firmware {number} of {count}"},
    KeyText{"State_Updated", "Firmware finished"},

    KeyText{"NormalEndTitle", ""},
    KeyText{"NormalEnd_AutoMes",
            "The printer at {address} has taken the update. It restarts by itself: leave it "
            "switched on until it is ready."},
    KeyText{"NormalEnd_ManualMes",
            "The printer at {address} has taken the update. When its display shows that it has "
            "finished, switch it off and on again."},
    KeyText{"NoUpdateEndTitle", ""},
    KeyText{"NoUpdateEnd_AutoMes",
            "The printer at {address} needs nothing from this package, and no firmware was sent. "
            "It becomes ready again by itself."},
    KeyText{"NoUpdateEnd_ManualMes",
            "The printer at {address} needs nothing from this package, and no firmware was sent. "
            "If its display still shows the update mode, switch it off and on again."},
    KeyText{"Error_DeviceErrorTitle", "printer error"},
    KeyText{"Error_DeviceErrorMes", "The printer at {address} reported an error {place}."},
    KeyText{"Error_ConnectErrorTitle", "damaged data"},
    KeyText{"Error_ConnectErrorMes",
            "Data between this computer and the printer at {address} arrived damaged {place}."},
    KeyText{"Error_DeviceBusyTitle", "printer busy"},
    KeyText{"Error_DeviceBusyMes", "The printer at {address} is busy and cannot be updated now."},
    KeyText{"UpdateIsRunning", "{holder}."},
    KeyText{"Error_FaxTitle", "fax in use"},
    KeyText{"Error_FaxMes", "The printer at {address} is sending or receiving a fax."},
    KeyText{"Error_PoweredOffTitle", "connection lost"},
    KeyText{"Error_PoweredOffMes", "The connection to {address} was lost {place}."},
    KeyText{"Error_ModelMismatchTitle", "other model"},
    KeyText{"Error_ModelMismatchMes",
            "The package is for the model {model}; the printer at {address} is {printer}."},
    KeyText{"Error_FirmReadTitle", "image unreadable"},
    KeyText{"Error_FirmReadMes",
            "The image of {firmware} could not be read from the package {place}."},
    KeyText{"Error_SystemTitle", "system error"},
    KeyText{"Error_SystemMes",
            "The run could not go on {place}: something failed in this computer, or the printer "
            "told too little about itself."},
    KeyText{"Error_CompatibleTitle", "installed version too old"},
    KeyText{"Error_CompatibleMes",
            "The version of {firmware} that is installed in the printer at {address} is too old "
            "for this package."},
    KeyText{"Error_OtherTitle", "no expected answer"},
    KeyText{"Error_OtherMes",
            "The printer at {address} gave no answer, or none that was expected, {place}."},

    KeyText{"NormalEnd_Unconfirmed",
            "The firmware was sent to the printer at {address}. This printer does not confirm that "
            "it has written it: leave it switched on until it is ready, then run the check, or "
            "update with --verify."},
    KeyText{"Verified",
            "The printer at {address} has come back, and has the versions that were sent."},
    KeyText{"NotConfirmedTitle", "not confirmed"},
    KeyText{"NotConfirmed",
            "The firmware was sent, but the printer at {address} did not come back in time to say "
            "which versions it has. Wait until it is ready, then run the check."},
    KeyText{"NotInstalledTitle", "another version"},
    KeyText{"NotInstalled",
            "The firmware was sent, but the printer at {address} has come back with another "
            "version. Wait until it is ready, then run the check."},

    KeyText{"UpdateAvailable",
            "An update would send {number} of {count} firmware to the printer "
            "at {address}."},
    KeyText{"NothingAvailable", "An update would send nothing to the printer at {address}."},
    KeyText{"UnreachableTitle", "no connection"},
    KeyText{"Unreachable",
            "There is no connection to the printer at {address}: it could not be made, or it was "
            "lost {place}."},
    KeyText{"Refused",
            "What is at {address} refuses connections to its port {port}: it is no printer, or it "
            "takes no updates over the network now."},
    KeyText{"TimedOut", "Nothing answered at {address}, port {port}."},
    KeyText{"NoRoute", "This computer knows no way to {address}."},
    KeyText{"UnknownHost", "The host that {address} names is unknown."},
    KeyText{"LostEarly",
            "The printer at {address} was reached, but the connection was lost, or an answer came "
            "only in part, {place}."},
    KeyText{"NoAnswer", "The printer at {address} gave no answer in time, {place}."},
    KeyText{"UnusableAnswer",
            "The printer at {address} answered, but an answer was missing, incomplete or not the "
            "expected one, {place}."},
    KeyText{"InUse", "The USB printer at {address} is in use by {programs}."},
    KeyText{"NotPermittedTitle", "not permitted"},
    KeyText{"NotPermitted", "This user may not open the USB printer at {address}."},
    KeyText{"UnreadableVersion",
            "The version of {firmware}, in the package or in the printer at {address}, cannot be "
            "compared."},
    KeyText{"OtherSeriesTitle", "the package is for another series"},
    KeyText{"OtherSeries",
            "The package is for another series: {firmware} does not replace what the printer at "
            "{address} has, so it was not sent, and the printer then reported an error."},
    KeyText{"OnlyThePrinter",
            "Only the printer decides whether an update goes on after this firmware: it is not "
            "sent, and the printer is then queried for its status. Where it answers with an error, "
            "the update ends there."},
    KeyText{"StoppedByUser", "You stopped the run {place}."},
    KeyText{"StoppedByDeadline", "The time limit was reached {place}."},
    KeyText{"StoppedByAnswer", "You did not answer yes, so nothing was sent to {address}."},
    KeyText{"StoppedByStall",
            "The printer showed no progress for {number} seconds, so the run was ended {place}."},
};

// How to go on when no firmware byte went out.
constexpr std::array kAdvice = {
    KeyText{"Error_DeviceErrorMes", "Clear the error at the printer, then try again."},
    KeyText{"Error_ConnectErrorMes", "Check the network's cables, then try again."},
    KeyText{"Error_DeviceBusyMes", "Wait until the printer is ready, then try again."},
    KeyText{"UpdateIsRunning",
            "Wait until it has ended, or give --lock-timeout S to wait for it, then try again."},
    KeyText{"Error_FaxMes", "Wait until the fax is finished, then try again."},
    KeyText{"Error_PoweredOffMes",
            "Check that the printer is switched on, that {address} is its address and that "
            "nothing between it and this computer blocks the connection, then try again."},
    KeyText{"Error_ModelMismatchMes", "Choose the package for the printer's model."},
    KeyText{"Error_FirmReadMes", "Get the package again."},
    KeyText{"Error_SystemMes", "Try again, with --verbose to see more."},
    KeyText{"Error_CompatibleMes", "Install an older package first, then this one."},
    KeyText{"Error_OtherMes", "Try again, with --verbose to see more."},
    KeyText{"Unreachable",
            "Check that the printer is switched on, that {address} is its address and that "
            "nothing between it and this computer blocks the connection, then try again."},
    KeyText{"Refused",
            "Check that {address} is the printer's address and that its settings allow updates, "
            "then try again."},
    KeyText{"TimedOut",
            "Check that the printer is switched on, that {address} is its address and that "
            "nothing between it and this computer blocks the connection, then try again."},
    KeyText{"NoRoute",
            "Check that {address} is the printer's address and that this computer is connected to "
            "its network, then try again."},
    KeyText{"UnknownHost", "Check the name, or give the printer's IPv4 address with --address."},
    KeyText{"LostEarly",
            "Try again. With --trace FILE, what was sent and what was answered is kept."},
    KeyText{"NoAnswer",
            "Wait until the printer is ready and has no job, then try again, with --verbose to see "
            "more."},
    KeyText{"UnusableAnswer", "Try again, with --verbose to see more."},
    KeyText{"InUse", "Wait until it has finished, or end it, then try again."},
    KeyText{"NotPermitted", "{permission}"},
    KeyText{"UnreadableVersion", "Get another package for this printer."},
    KeyText{"OtherSeries", "Choose the package for this printer."},
    KeyText{"StoppedByUser", "Start again when you are ready."},
    KeyText{"StoppedByDeadline", "Start again with a longer --deadline."},
    KeyText{"StoppedByAnswer", "Start again when you are ready."},
    KeyText{"StoppedByStall", "Start again with a longer --stall-limit."},
};

template <std::size_t size>
std::string_view find(const std::array<KeyText, size>& texts, std::string_view key,
                      std::string_view otherwise)
{
    const auto* row = std::find_if(texts.begin(), texts.end(),
                                   [key](const auto& each) { return each.key == key; });
    return row != texts.end() ? row->text : otherwise;
}

std::string_view factOf(const MessageFacts& facts, std::string_view name)
{
    const std::array<std::pair<std::string_view, std::string_view>, 12> known = {
        {{"address", facts.address},
         {"model", facts.model},
         {"printer", facts.printer},
         {"firmware", facts.firmware},
         {"place", facts.place},
         {"sent", facts.sent},
         {"port", facts.port},
         {"number", facts.number},
         {"count", facts.count},
         {"permission", facts.permission},
         {"holder", facts.holder},
         {"programs", facts.programs}}};
    const auto* fact = std::find_if(known.begin(), known.end(),
                                    [name](const auto& each) { return each.first == name; });
    return fact != known.end() ? fact->second : std::string_view();
}

// One pass: a fact that holds braces itself stays as it is.
std::string filled(std::string_view text, const MessageFacts& facts)
{
    std::string whole;
    for (auto brace = text.find('{'); brace != std::string_view::npos; brace = text.find('{')) {
        const auto end = text.find('}', brace);
        whole += text.substr(0, brace);
        whole += factOf(facts, text.substr(brace + 1, end - brace - 1));
        text.remove_prefix(end + 1);
    }
    return whole.append(text);
}

std::string ofTotal(const FirmwareOutcome& outcome)
{
    return std::to_string(outcome.bytesSent) + " of " + std::to_string(outcome.bytesTotal)
        + " bytes";
}

std::string_view reasonText(VersionReason reason)
{
    constexpr std::array<std::string_view, 11> kReasons = {
        "it applies",
        "the printer is another model",
        "the printer does not list it",
        "not newer than the installed version",
        "the installed version is too old",
        "the installed version is of another series",
        "its version cannot be compared",
        "an error came first",
        "the package's version rule never sends this version",
        "not among those chosen with --only",
        "this version is installed"};
    return kReasons.at(static_cast<std::size_t>(reason));
}

} // namespace

std::string englishText(std::string_view key, const MessageFacts& facts)
{
    return filled(find(kTexts, key, key), facts);
}

std::string adviceText(NextStep next, std::string_view messageKey, const MessageFacts& facts)
{
    if (next == NextStep::none)
        return {};
    if (next == NextStep::checkPrinter)
        return facts.sent
            + ", and it is not known what the printer made of it. Do not switch the printer off: "
              "wait until its display shows that it is ready, then run the check. If it stays in "
              "the update mode, run the update again.";
    return filled(find(kAdvice, messageKey, ""), facts);
}

std::string checkedText(const FirmwareOutcome& outcome)
{
    const std::string reason(reasonText(outcome.reason));
    std::string text;
    if (outcome.decision == Decision::send)
        text = "send it";
    else if (outcome.decision == Decision::skip)
        text = "skip it: " + reason;
    else if (outcome.decision == Decision::refuse)
        text = "refuse it: " + reason;
    else
        return "not decided";
    return outcome.reached ? text : "not get so far (it would " + text + ")";
}

std::string updatedText(const FirmwareOutcome& outcome)
{
    if (!outcome.reached)
        return "not reached";
    if (outcome.bytesWentOut && outcome.confirmed)
        return "sent, and confirmed by the printer";
    if (outcome.bytesWentOut && outcome.resultCode == result::kSuccess)
        return "sent whole, not confirmed by the printer";
    if (outcome.bytesWentOut && outcome.bytesSent == 0)
        return "broken off at its first bytes";
    if (outcome.bytesWentOut)
        return "broken off after " + ofTotal(outcome);
    if (outcome.decision == Decision::skip)
        return "skipped: " + std::string(reasonText(outcome.reason));
    if (outcome.decision == Decision::refuse)
        return "refused: " + std::string(reasonText(outcome.reason));
    return "not sent";
}

std::string verdictWord(Verdict verdict)
{
    constexpr std::array kWords = {"",
                                   "Updated",
                                   "Update available",
                                   "Nothing to update",
                                   "Refused",
                                   "Failed",
                                   "Stopped",
                                   "Wrong usage",
                                   "No usable package",
                                   "Printers",
                                   "No printer",
                                   "Runs",
                                   "Ready",
                                   "Obstacles",
                                   "Saved"};
    return kWords.at(static_cast<std::size_t>(verdict));
}
