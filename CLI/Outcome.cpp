// SPDX-License-Identifier: MIT
#include "CLI/Outcome.h"

#include "UI/Text/PlainText.h"
#include "VYM/ProtocolResult.h"

#include <array>

namespace {

constexpr int kLowestResult = result::kTooOld;

} // namespace

const char* decisionName(Decision decision)
{
    constexpr std::array<const char*, 4> kNames = {"send", "skip", "refuse", "undecided"};
    return kNames.at(static_cast<std::size_t>(decision));
}

Decision decisionOf(const VersionDecision& decision)
{
    if (decision.send)
        return Decision::send;
    if (decision.code == result::kSuccess || decision.code == result::kNotApplicable)
        return Decision::skip;
    return decision.reason == VersionReason::undecided ? Decision::undecided : Decision::refuse;
}

int exitCodeOf(int resultCode)
{
    if (resultCode == result::kSuccess)
        return exitcode::kDone;
    if (resultCode == result::kNotApplicable)
        return exitcode::kNothingToUpdate;
    const bool known = resultCode < 0 && resultCode >= kLowestResult;
    return exitcode::kEngineBase - (known ? resultCode : result::kMissingArgument);
}

Outcome usageOutcome(const Options& options, std::string message)
{
    Outcome outcome;
    outcome.command = options.command;
    outcome.exitCode = exitcode::kUsage;
    outcome.verdict = Verdict::wrongUsage;
    outcome.name = "wrong-usage";
    outcome.message = std::move(message);
    outcome.next = NextStep::retry;
    return outcome;
}

Outcome packageOutcome(const Options& options, std::string problem)
{
    Outcome outcome;
    outcome.command = options.command;
    outcome.exitCode = exitcode::kNoPackage;
    outcome.verdict = Verdict::noPackage;
    outcome.name = "no-usable-package";
    outcome.message = std::move(problem);
    outcome.next = NextStep::chooseOtherPackage;
    outcome.address = plainText(options.address.value_or(options.uri.value_or("")));
    return outcome;
}

Outcome printerOutcome(const Options& options, std::string name, std::string problem)
{
    Outcome outcome;
    outcome.command = options.command;
    outcome.exitCode = exitcode::kNoSuchPrinter;
    outcome.verdict = Verdict::noPrinter;
    outcome.name = std::move(name);
    outcome.message = std::move(problem);
    outcome.next = NextStep::retry;
    return outcome;
}
