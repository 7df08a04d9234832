// SPDX-License-Identifier: MIT
#include "CLI/Tables.h"

#include "CLI/Messages.h"
#include "CLI/ProgressText.h"
#include "CLI/Terminal.h"
#include "UI/Text/TextList.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

using Row = std::vector<std::string>;

constexpr std::size_t kLabelColumns = 22;
constexpr std::size_t kWidestCell = 40; // a long name must not push the others off the screen
constexpr std::size_t kWidestAddress = 80; // of a USB printer, whose names are escaped

std::string padded(const std::string& text, std::size_t columns)
{
    const auto used = columnsNeeded(text);
    return used < columns ? text + std::string(columns - used, ' ') : text;
}

std::size_t columnWidth(const std::vector<Row>& rows, std::size_t column, std::size_t widest)
{
    std::size_t width = 0;
    for (const auto& row : rows)
        width = std::max(width, columnsNeeded(row[column]));
    return std::min(width, widest);
}

// A row of its own for each cell, for a terminal that is too narrow for the table.
std::string blocks(const std::vector<Row>& rows)
{
    std::string text;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        text += "  " + rows[i].front() + "\n";
        for (std::size_t column = 1; column < rows[i].size(); ++column) {
            if (!rows[i][column].empty())
                text += "    " + rows.front()[column] + ": " + rows[i][column] + "\n";
        }
    }
    return text;
}

std::size_t widestLine(std::string_view text)
{
    std::size_t widest = 0;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        widest = std::max(widest, columnsNeeded(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return widest;
}

std::string aligned(const std::vector<Row>& rows, std::size_t widest);

std::string table(const std::vector<Row>& rows, std::size_t columns,
                  std::size_t widest = kWidestCell)
{
    auto text = aligned(rows, widest);
    return widestLine(text) <= columns ? text : blocks(rows);
}

// The last column is not padded, so that no line ends in blanks.
std::string aligned(const std::vector<Row>& rows, std::size_t widest)
{
    std::string text;
    for (const auto& row : rows) {
        text += " ";
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            text += " " + padded(row[i], columnWidth(rows, i, widest)) + " ";
        text += " " + row.back() + "\n";
    }
    return text;
}

std::string orDash(const std::string& text)
{
    return text.empty() ? "-" : text;
}

std::string labelled(const char* label, const std::string& text)
{
    return "  " + padded(label, kLabelColumns) + orDash(text) + "\n";
}

std::string timeText(int seconds)
{
    return seconds < 0 ? "" : std::to_string(seconds) + " s";
}

std::string ruleText(yesno_type rule)
{
    switch (rule) {
    case yesno_no:
        return "newer versions only";
    case yesno_yes:
        return "any version";
    case yesno_both:
        return "newer versions and the same";
    default:
        return "none stated";
    }
}

// Binary-coded decimal: two digits of major, one of minor, one of patch.
std::string systemText(const std::optional<long>& version)
{
    if (version.value_or(0) == 0)
        return {};
    const auto bits = static_cast<unsigned long>(*version);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%lx.%lx.%lx", bits >> 8U, bits >> 4U & 0xFU,
                  bits & 0xFU);
    return text.data();
}

std::string yesNoText(yesno_type answer)
{
    return answer == yesno_yes ? "yes" : "no";
}

std::string fileSizeText(const std::optional<unsigned long>& bytes)
{
    if (!bytes.has_value())
        return "not wholly in the package";
    const auto plain = std::to_string(*bytes) + " bytes";
    const auto rounded = sizeText(*bytes);
    return rounded == plain ? plain : rounded + " (" + plain + ")";
}

// "1 updated, not confirmed": as short as a table needs it.
std::string endText(const PastRun& run)
{
    if (!run.hasEnded)
        return "not finished";
    auto verdict = run.verdict;
    std::replace(verdict.begin(), verdict.end(), '-', ' ');
    return verdict.empty() ? run.result : run.result + ", " + verdict;
}

} // namespace

std::string packageTable(const PackageFacts& package, std::size_t columns)
{
    std::string text = "Package in " + package.folder + "\n";
    text += labelled("Model", package.model);
    text += labelled("Product", package.product);
    text += labelled("Model names", joined(package.modelNames));
    text += labelled("Drivers", joined(package.driverNames));
    text += labelled("Device-ID models", joined(package.deviceIdModels));
    text += labelled("Ports", joined(package.ports));
    text += labelled("Port number", std::to_string(package.portNumber));
    text += labelled("Time to enter", timeText(package.enterSeconds));
    text += labelled("Time to leave", timeText(package.exitSeconds));
    text += labelled("Time to update", timeText(package.updateSeconds));
    text += labelled("Operation before", yesNoText(package.needsEnterOperation));
    text += labelled("Operation after", yesNoText(package.needsExitOperation));
    text += labelled("Versions sent", ruleText(package.versionRule));
    text += labelled("Lowest system", systemText(package.lowestSystem));
    text += labelled("Highest system", systemText(package.highestSystem));
    if (package.signature)
        text += labelled("Signed with",
                         package.signature->key + " (" + package.signature->comment + ")");
    std::vector<Row> rows = {{"Firmware", "Version", "File", "Size"}};
    for (const auto& firmware : package.firmware)
        rows.push_back({firmware.displayName, orDash(firmware.displayVersion),
                        orDash(firmware.file), fileSizeText(firmware.bytes)});
    return text + "\n" + table(rows, columns);
}

std::string firmwareTable(const Outcome& outcome, std::size_t columns)
{
    const auto& all = outcome.firmware;
    if (std::none_of(all.begin(), all.end(), [](const auto& each) { return each.reached; }))
        return {};
    const bool isCheck = outcome.command == Command::check;
    std::vector<Row> rows = {isCheck ? Row{"Firmware", "Installed", "Package", "An update would"}
                                     : Row{"Firmware", "Package", "What happened"}};
    for (const auto& each : all) {
        const auto& firmware = each.firmware;
        if (isCheck)
            rows.push_back({firmware.displayName, orDash(each.installed.value_or("")),
                            orDash(firmware.version), checkedText(each)});
        else
            rows.push_back(
                {firmware.displayName, orDash(firmware.displayVersion), updatedText(each)});
    }
    return table(rows, columns);
}

std::string printerTable(const PrinterFacts& printers, std::size_t columns)
{
    if (printers.list.empty())
        return {};
    Row head = {"Name", "Address", "Connection", "Model", "Found as"};
    if (printers.all)
        head.emplace_back("This printer");
    const bool warns = std::any_of(printers.list.begin(), printers.list.end(),
                                   [](const auto& each) { return !each.warning.empty(); });
    if (warns)
        head.emplace_back("Warning");
    std::vector<Row> rows = {head};
    for (const auto& each : printers.list) {
        rows.push_back({orDash(each.name), orDash(each.address), connectionText(each),
                        orDash(each.model), foundAsText(each.foundAs)});
        if (printers.all)
            rows.back().push_back(reasonText(each));
        if (warns)
            rows.back().push_back(each.warning);
    }
    return table(rows, columns, kWidestAddress);
}

std::string historyTable(const std::vector<PastRun>& runs, std::size_t columns)
{
    if (runs.empty())
        return {};
    std::vector<Row> rows = {{"Run", "Started", "Printer", "Package", "Result"}};
    for (const auto& each : runs) {
        const auto printer =
            each.printer.empty() ? each.address : each.printer + " (" + each.address + ")";
        rows.push_back({std::to_string(each.number), orDash(each.started), orDash(printer),
                        orDash(each.package), endText(each)});
    }
    return table(rows, columns);
}

std::string findingTable(const std::vector<Finding>& findings)
{
    constexpr std::size_t kStatusWidth = 9; // of the longest word, and a blank
    constexpr std::size_t kCheckWidth = 14;
    std::string text;
    for (const auto& each : findings) {
        std::string status = findingStatusName(each.status);
        status.resize(kStatusWidth, ' ');
        auto check = each.check;
        check.resize(kCheckWidth, ' ');
        text.append("  ").append(status).append(check).append(each.message).append("\n");
        if (!each.mend.empty())
            text +=
                "  " + std::string(kStatusWidth + kCheckWidth, ' ') + "mend: " + each.mend + "\n";
    }
    return text;
}
