// SPDX-License-Identifier: MIT
#include "Tools/vympack/SimulateCommand.h"

#include "CLI/Conclusion.h"
#include "CLI/Report.h"
#include "CLI/Tables.h"
#include "Tools/vympack/DecisionTable.h"
#include "Tools/vympack/EnginePackage.h"
#include "Tools/vympack/SimulatedPrinter.h"

#include <nlohmann/json.hpp>

namespace vympack {

namespace {

using nlohmann::ordered_json;

constexpr const char* kWhere = "(simulated)"; // replaces the address in messages

Outcome concluded(const PackageFacts& package, const SimulatedPrinter& printer)
{
    CheckFacts facts;
    facts.address = kWhere;
    facts.report = checkTargetInfo(targetInfoOf(printer));
    return concludeCheck(package, facts);
}

void writeSimulation(std::ostream& out, const Outcome& outcome, const std::vector<TableRow>& rows)
{
    out << firmwareTable(outcome, std::string::npos);
    out << outcome.name << " (" << outcome.exitCode << "): " << outcome.message << "\n";
    writeDecisionTable(out, rows);
}

void writeSimulationJson(std::ostream& out, const Outcome& outcome,
                         const std::vector<TableRow>& rows, bool withTable)
{
    // Removes fields that mean nothing without a real printer.
    auto json = ordered_json::parse(resultAsJson(outcome));
    for (const char* key : {"seconds", "firmware_bytes_sent", "address", "printer_name", "package",
                            "printers", "udev_rule"})
        json.erase(key);
    json["command"] = "simulate";
    if (withTable)
        json["table"] = decisionTableJson(rows);
    out << json.dump() << "\n";
}

} // namespace

int simulate(const SimulateOrder& order, Streams streams)
{
    std::string wrong;
    auto printer = readPrinter(order.model, order.installed, wrong);
    if (!printer) {
        complain(streams, "--installed, --model", wrong);
        return kExitUsage;
    }
    printer->statusQuery = !order.noStatusQuery;
    const EnginePackage package(order.path);
    Outcome outcome;
    std::vector<TableRow> rows;
    if (const auto* facts = package.facts(); facts != nullptr) {
        if (printer->model.empty())
            printer->model = facts->model;
        outcome = concluded(*facts, *printer);
        if (order.table)
            rows = decisionTable(*facts, *printer);
    } else {
        Options options;
        options.command = Command::check;
        outcome = packageOutcome(options, package.problem());
    }
    if (order.json)
        writeSimulationJson(streams.results, outcome, rows, order.table);
    else
        writeSimulation(streams.results, outcome, rows);
    return outcome.exitCode;
}

} // namespace vympack
