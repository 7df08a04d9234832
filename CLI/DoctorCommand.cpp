// SPDX-License-Identifier: MIT
#include "CLI/Commands.h"
#include "UI/Run/LogFolder.h"

#include <algorithm>

doctor::Request doctorRequest(const Workplace& place)
{
    const auto& options = place.options;
    doctor::Request request;
    request.address = options.address;
    request.printer = options.printer;
    request.uri = options.uri;
    request.port = options.port;
    request.printServer = place.printServer;
    request.program = "vymkit-cli";
    request.logFolder = logFolder();
    return request;
}

Outcome runDoctor(const OpenedPackage& opened, Workplace& place)
{
    Outcome outcome;
    outcome.command = Command::doctor;
    outcome.findings = doctor::examine(opened, doctorRequest(place));
    const auto problems =
        std::count_if(outcome.findings.begin(), outcome.findings.end(),
                      [](const auto& each) { return each.status == FindingStatus::problem; });
    outcome.exitCode = problems == 0 ? exitcode::kDone : exitcode::kObstacles;
    outcome.verdict = problems == 0 ? Verdict::ready : Verdict::obstacles;
    outcome.name = problems == 0 ? "ready" : "obstacles";
    outcome.message = problems == 0 ? "Nothing that an update needs is missing."
        : problems == 1             ? "1 thing would hinder an update."
                                    : std::to_string(problems) + " things would hinder an update.";
    return outcome;
}
