// SPDX-License-Identifier: MIT
#include "Tools/vympack/InitCommand.h"

#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/DescriptionCheck.h"
#include "Tools/vympack/MakeCommand.h"
#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/Report.h"
#include "VYM/AsciiCase.h"

#include <algorithm>

namespace vympack {

namespace {

constexpr const char* kEndOfRow = "\r\n";
constexpr std::size_t kLongestSentName = 31; // the room in the packets
constexpr const char* kExample = "MAIN=AB010203:main.bin:Main controller";

// The value of one --firmware.
struct PlannedFirmware {
    std::string version; // with its name, NAME=VERSION
    std::string image;
    std::string displayName; // may be empty
};

std::optional<PlannedFirmware> parseFirmware(const std::string& text)
{
    const auto first = text.find(':');
    const auto second = first == text.npos ? text.npos : text.find(':', first + 1);
    const auto equals = text.find('=');
    if (first == text.npos || equals == 0 || equals + 1 >= first)
        return std::nullopt;
    PlannedFirmware firmware{text.substr(0, first), text.substr(first + 1, second - first - 1),
                             second == text.npos ? std::string() : text.substr(second + 1)};
    const bool isBroken = firmware.image.empty()
        || (firmware.version + firmware.image).find_first_of(" \t\r\n\"") != text.npos
        || firmware.image.find('=') != text.npos
        || firmware.displayName.find_first_of("\r\n\"") != text.npos;
    return isBroken ? std::nullopt : std::optional(firmware);
}

// The image's name in capitals, cut to the packets' room.
std::string sentName(const std::string& image)
{
    const auto name = image.substr(image.find_last_of("/\\") + 1);
    return ascii::upperCase(name.substr(0, kLongestSentName));
}

std::string versionRow(const PlannedFirmware& firmware)
{
    const auto shown =
        firmware.displayName.empty() ? std::string() : " DISPFIRM=\"" + firmware.displayName + "\"";
    return "VERSION " + firmware.version + " " + firmware.image + " " + sentName(firmware.image)
        + shown;
}

std::vector<std::string> settings(const std::string& model)
{
    const auto name = "\"" + model + "\"";
    return {
        "# A package's description. Rows end in CR LF; a row that begins with no key is ignored.",
        "",
        "# The model that a printer has to name itself, and what people, drivers and USB call it.",
        "TGMNAME " + name,
        "MODELNAME " + name,
        "DRIVERNAME " + name,
        "DEVICEIDMODELNAME " + name,
        "PRODUCT \"" + model + " series\"",
        "",
        "# Where it is reached, and the seconds that it may take to enter and leave the update",
        "# mode, and to answer each packet of firmware.",
        "PORT USB NET",
        "PORTNO 48350",
        "ENTERTIME 5",
        "EXITTIME 5",
        "UPDATETIME 30",
        "",
        "# NO sends newer versions only, BOTH also the same one, YES any.",
        "ALLOWVERSIONDOWN BOTH",
        "SPECIALCMDPATTERN NO",
        "# YES: a person has to bring the printer into the update mode, or out of it.",
        "NEEDENTEROPERATION NO",
        "NEEDEXITOPERATION NO",
        "# The oldest system to run on; 0 allows all.",
        "PLATFORMVERSION MACOS=0",
        "",
        "# One row for each firmware: name and version, image, its name towards the printer.",
    };
}

std::string descriptionOf(const InitOrder& order, const std::vector<PlannedFirmware>& firmware)
{
    std::string text;
    for (const auto& row : settings(order.model))
        text += row + kEndOfRow;
    if (order.firmware.empty())
        text += std::string("# An example: replace it with a row for each firmware of yours.")
            + kEndOfRow;
    for (const auto& each : firmware)
        text += versionRow(each) + kEndOfRow;
    return text;
}

int writeNew(const InitOrder& order, const std::string& text, Streams streams)
{
    if (order.path == kStandardOutput) {
        streams.results << text;
        return kExitDone;
    }
    AtomicFile out(order.path,
                   order.force ? AtomicFile::Existing::replaced : AtomicFile::Existing::kept);
    if (!out.open() || !out.write(text.data(), text.size()) || !out.commit()) {
        complain(streams, order.path, out.reason());
        return out.exitCode();
    }
    streams.results << printable(order.path) << ": written";
    if (order.firmware.empty())
        streams.results << "; replace the model \"" << printable(order.model)
                        << "\" and the example row of VERSION";
    streams.results << "\n";
    return kExitDone;
}

} // namespace

int writeDescription(const InitOrder& order, Streams streams)
{
    if (order.model.empty() || order.model.find_first_of("\r\n\"") != order.model.npos) {
        complain(streams, order.model,
                 "a model's name is not empty and has no quotes and line ends");
        return kExitUsage;
    }
    std::vector<PlannedFirmware> firmware;
    for (const auto& text :
         order.firmware.empty() ? std::vector<std::string>{kExample} : order.firmware) {
        const auto parsed = parseFirmware(text);
        if (!parsed) {
            complain(streams, text,
                     "is not NAME=VERSION:FILE[:DISPLAY NAME], with blanks in the last part only");
            return kExitUsage;
        }
        firmware.push_back(*parsed);
    }
    const auto text = descriptionOf(order, firmware);
    Defects defects;
    checkDescription(text, {order.path, {}, {}}, nullptr, defects);
    if (defects.errors() + defects.warnings() == 0)
        return writeNew(order, text, streams);
    writeDefects(streams.errors, order.path, defects);
    return kExitDefects;
}

} // namespace vympack
