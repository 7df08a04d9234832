// SPDX-License-Identifier: MIT
#include "Tools/vympack/RehearseCommand.h"

#include "Tools/vympack/Container.h"
#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DecisionTable.h"
#include "Tools/vympack/DeskPrinter.h"
#include "Tools/vympack/EnginePackage.h"
#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/Rehearsal.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace vympack {

namespace {

// For each firmware, the first version that the package would replace.
std::vector<InstalledFirmware> olderOfEach(const PackageFacts& package)
{
    std::vector<InstalledFirmware> installed;
    std::set<std::uint32_t> taken;
    for (const auto& row : decisionTable(package, {package.model, {}, true})) {
        if (row.decision.send && taken.insert(row.number).second)
            installed.push_back({package.firmware[row.number - 1].name, row.installed});
    }
    return installed;
}

vymprinter::PrinterModel deskModel(SimulatedPrinter printer, const PackageFacts& package)
{
    printer.model = package.model;
    if (printer.installed.empty())
        printer.installed = olderOfEach(package);
    vymprinter::PrinterModel model;
    model.targetInfo = targetInfoOf(printer);
    return model;
}

const char* stepText(std::uint16_t command)
{
    switch (command) {
    case 0x5101:
        return "receives the request to enter download mode";
    case 0x5001:
        return "sends its file";
    case 0x5002:
        return "receives";
    case 0x5103:
        return "reports how far it has written";
    case 0x5102:
        return "receives the request to leave download mode";
    default:
        return "receives a packet of an unknown kind";
    }
}

void writeSteps(std::ostream& out, const DeskPrinter& printer)
{
    out << "The printer\n";
    for (const auto& step : printer.steps()) {
        out << "  " << stepText(step.command);
        if (!step.name.empty())
            out << " " << printable(step.name);
        if (step.bytes > 0)
            out << ", " << step.bytes << " bytes in " << step.packets << " packets";
        else if (step.packets > 1)
            out << ", " << step.packets << " times";
        out << "\n";
    }
}

// The digest of an image in the package; empty if it cannot be read.
std::string digestOf(const std::string& image, const std::string& path)
{
    InputFile file;
    std::string reason;
    Defects defects;
    if (!file.open(path, reason))
        return {};
    const auto table = readTable(file, path, defects);
    if (!table)
        return {};
    const auto& all = table->entries;
    const auto entry = std::find_if(
        all.begin(), all.end(), [&](const auto& each) { return printable(each.name) == image; });
    return entry == all.end() ? std::string() : file.digest(entry->offset, entry->size);
}

// Compares the sent firmware with the received, one line each; false if any differs.
bool compare(const Outcome& outcome, const DeskPrinter& printer, const std::string& path,
             std::ostream& out)
{
    bool same = true;
    std::size_t arrived = 0;
    for (const auto& firmware : outcome.firmware) {
        if (!firmware.bytesWentOut)
            continue;
        const auto expected = digestOf(firmware.firmware.file, path);
        const bool isSame = arrived < printer.received().size() && !expected.empty()
            && printer.received()[arrived].sha256 == expected;
        ++arrived;
        same = same && isSame;
        out << firmware.firmware.displayName << ": "
            << (isSame ? "every byte arrived, SHA-256 " + expected
                       : "what arrived differs from the image " + firmware.firmware.file)
            << "\n";
    }
    return same && arrived == printer.received().size();
}

std::string fileOf(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_directory(path, error) ? path + "/" + std::string(kPackageName)
                                                      : path;
}

int run(const RehearseOrder& order, const PackageFacts& package, vymprinter::PrinterModel model,
        Streams streams)
{
    DeskPrinter printer(std::move(model));
    if (!printer.error().empty()) {
        complain(streams, order.path, printer.error());
        return kExitBroken;
    }
    std::optional<WithoutPauses> quick;
    if (order.quick)
        quick.emplace();
    const auto outcome = rehearse(package, printer.port());
    printer.stop();
    writeSteps(streams.results, printer);
    const bool isSame = compare(outcome, printer, fileOf(order.path), streams.results);
    streams.results << outcome.name << " (" << outcome.exitCode << "): " << outcome.message << "\n";
    return isSame && outcome.exitCode == kExitDone ? kExitDone : kExitDefects;
}

} // namespace

int rehearsePackage(const RehearseOrder& order, Streams streams)
{
    std::string wrong;
    auto printer = readPrinter({}, order.installed, wrong);
    if (!printer) {
        complain(streams, "--installed", wrong);
        return kExitUsage;
    }
    const EnginePackage package(order.path);
    if (package.facts() == nullptr) {
        complain(streams, order.path, package.problem());
        return kExitNoInput;
    }
    return run(order, *package.facts(), deskModel(std::move(*printer), *package.facts()), streams);
}

} // namespace vympack
