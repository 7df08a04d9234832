// SPDX-License-Identifier: MIT
#include "CLI/Commands.h"
#include "UI/Run/LogFolder.h"

namespace {

std::string countText(std::size_t count)
{
    if (count == 0)
        return "No run has left a log yet.";
    return std::to_string(count) + (count == 1 ? " run has" : " runs have")
        + " left a log, the newest first. Run \"vymkit-cli history N\" to read one.";
}

} // namespace

Outcome runHistory(const Options& options)
{
    Outcome outcome;
    outcome.command = Command::history;
    auto runs = pastRuns(logFolder());
    if (options.run.has_value() && *options.run > runs.size()) {
        return usageOutcome(options,
                            "There is no run " + std::to_string(*options.run) + ". "
                                + countText(runs.size()));
    }
    outcome.name = options.run.has_value() ? "log-shown" : "history-listed";
    outcome.verdict = options.run.has_value() ? Verdict::shown : Verdict::history;
    if (options.run.has_value()) {
        outcome.pastRuns = {runs[*options.run - 1]};
        outcome.log = logText(outcome.pastRuns.front());
    } else {
        outcome.message = countText(runs.size());
        outcome.pastRuns = std::move(runs);
    }
    return outcome;
}
