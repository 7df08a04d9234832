// SPDX-License-Identifier: MIT
#include "Tools/vympack/DecisionTable.h"

#include "CLI/Outcome.h"
#include "Tools/vympack/VersionSamples.h"
#include "VYM/CheckRun.h"

#include <algorithm>
#include <cassert>
#include <iomanip>
#include <nlohmann/json.hpp>

namespace vympack {

namespace {

// Wide enough for the longest version form and sample name.
constexpr int kVersionWidth = 20;

// A printer that lists each firmware with its n-th sample, so that one pass decides all rows.
std::vector<TableRow> decideSample(const PackageFacts& package, SimulatedPrinter& printer,
                                   std::size_t n)
{
    std::vector<TableRow> rows;
    printer.installed.clear();
    for (const auto& firmware : package.firmware) {
        const auto samples = versionSamples(firmware.version, firmware.compatibleVersion);
        if (n >= samples.size() || samples[n].version.empty() || firmware.name.empty())
            continue;
        printer.installed.push_back({firmware.name, samples[n].version});
        rows.push_back({firmware.number,
                        firmware.displayName,
                        firmware.version,
                        formText(firmware.version),
                        samples[n].what,
                        samples[n].version,
                        {}});
    }
    const auto report = checkTargetInfo(targetInfoOf(printer));
    for (auto& row : rows) {
        assert(row.number != 0);
        if (row.number <= report.entries.size())
            row.decision = report.entries[row.number - 1].decision;
    }
    return rows;
}

const char* word(const TableRow& row)
{
    return decisionName(decisionOf(row.decision));
}

} // namespace

std::vector<TableRow> decisionTable(const PackageFacts& package, SimulatedPrinter printer)
{
    std::vector<TableRow> rows;
    for (std::size_t n = 0; n < kSamples; ++n) {
        auto some = decideSample(package, printer, n);
        std::move(some.begin(), some.end(), std::back_inserter(rows));
    }
    std::stable_sort(rows.begin(), rows.end(), [](const auto& left, const auto& right) {
        return left.number < right.number;
    });
    return rows;
}

void writeDecisionTable(std::ostream& out, const std::vector<TableRow>& rows)
{
    std::uint32_t number = 0;
    for (const auto& row : rows) {
        if (row.number != number)
            out << "\n" << row.firmware << " " << row.update << " (" << row.form << ")\n";
        number = row.number;
        out << "  " << std::left << std::setw(kVersionWidth) << row.what << " "
            << std::setw(kVersionWidth) << row.installed << " " << word(row) << ", "
            << reasonName(row.decision.reason) << "\n"
            << std::right;
    }
}

nlohmann::ordered_json decisionTableJson(const std::vector<TableRow>& rows)
{
    auto list = nlohmann::ordered_json::array();
    for (const auto& row : rows)
        list.push_back({{"number", row.number},
                        {"name", row.firmware},
                        {"version", row.update},
                        {"form", row.form},
                        {"sample", row.what},
                        {"installed_version", row.installed},
                        {"decision", word(row)},
                        {"reason", reasonName(row.decision.reason)},
                        {"result_code", row.decision.code}});
    return list;
}

} // namespace vympack
