// SPDX-License-Identifier: MIT
#include "Tools/vympack/SimulatedPrinter.h"

namespace vympack {

namespace {

constexpr const char* kRows = "MAXPACKET 65536\r\n" // as large as printers have it
                              "SUPPORT_COMMAND 5001\r\nSUPPORT_COMMAND 5002\r\n"
                              "SUPPORT_COMMAND 5101\r\nSUPPORT_COMMAND 5102\r\n";
constexpr const char* kStatusQueryRow = "SUPPORT_COMMAND 5103\r\n";

std::optional<InstalledFirmware> parseInstalled(const std::string& text)
{
    const auto equals = text.find('=');
    if (equals == 0 || equals == text.npos || equals + 1 == text.size()
        || text.find_first_of(" \t\r\n\"") != text.npos)
        return std::nullopt;
    return InstalledFirmware{text.substr(0, equals), text.substr(equals + 1)};
}

} // namespace

std::optional<SimulatedPrinter>
readPrinter(const std::string& model, const std::vector<std::string>& installed, std::string& wrong)
{
    SimulatedPrinter printer{model, {}, true};
    if (model.find_first_of("\r\n\"") != model.npos) {
        wrong = model + ": a model's name has no quotes and no line ends";
        return std::nullopt;
    }
    for (const auto& text : installed) {
        const auto firmware = parseInstalled(text);
        if (!firmware) {
            wrong = text + ": is not NAME=VERSION without blanks and quotes";
            return std::nullopt;
        }
        printer.installed.push_back(*firmware);
    }
    return printer;
}

std::string targetInfoOf(const SimulatedPrinter& printer)
{
    std::string text = "TGMNAME \"" + printer.model + "\"\r\n";
    for (const auto& firmware : printer.installed)
        text += "VERSION " + firmware.name + "=" + firmware.version + "\r\n";
    text += kRows;
    if (printer.statusQuery)
        text += kStatusQueryRow;
    return text;
}

} // namespace vympack
