// SPDX-License-Identifier: MIT
#include "UI/Support/UsbSurvey.h"

#include "DevConn/UsbPortName.h"
#include "UI/Support/UdevRule.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextList.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* kPrinterClass = "07";
constexpr const char* kPrinterSubclass = "01";

std::string firstLine(const fs::path& file)
{
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return line;
}

std::vector<fs::path> entriesOf(const fs::path& folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        entries.push_back(entry->path());
    std::sort(entries.begin(), entries.end());
    return entries;
}

std::string linkName(const fs::path& link)
{
    std::error_code error;
    const auto target = fs::read_symlink(link, error);
    return error ? "" : target.filename().string();
}

bool isNumber(const std::string& text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

std::string threeDigits(const std::string& number)
{
    return std::string(number.size() < 3 ? 3 - number.size() : 0, '0') + number;
}

// The names of the processes that have one of the files open, as far as this user may see them.
std::vector<std::string> holdersOf(const std::vector<std::string>& nodes, const std::string& root)
{
    std::vector<std::string> names;
    for (const auto& process : entriesOf(root + "/proc")) {
        if (!isNumber(process.filename().string()))
            continue;
        for (const auto& file : entriesOf(process / "fd")) {
            std::error_code error;
            const auto target = fs::read_symlink(file, error).string();
            if (error || std::find(nodes.begin(), nodes.end(), target) == nodes.end())
                continue;
            names.push_back(plainText(firstLine(process / "comm")) + " (process "
                            + process.filename().string() + ")");
            break;
        }
    }
    return names;
}

bool hasTag(const std::string& deviceNumber, const std::string& root)
{
    std::ifstream stream(root + "/run/udev/data/c" + deviceNumber);
    for (std::string line; std::getline(stream, line);)
        if (line == "G:uaccess" || line == "Q:uaccess")
            return true;
    return false;
}

SurveyedPrinter surveyed(const fs::path& interface, const fs::path& device, const std::string& root)
{
    SurveyedPrinter printer;
    printer.product = plainText(firstLine(device / "product"));
    printer.serial = plainText(firstLine(device / "serial"));
    printer.node = "/dev/bus/usb/" + threeDigits(firstLine(device / "busnum")) + "/"
        + threeDigits(firstLine(device / "devnum"));
    printer.driver = linkName(interface / "driver");
    std::vector<std::string> nodes = {printer.node};
    for (const auto& file : entriesOf(interface / "usbmisc"))
        nodes.push_back("/dev/usb/" + file.filename().string());
    printer.holders = holdersOf(nodes, root);
    printer.isOpenable = access((root + printer.node).c_str(), R_OK | W_OK) == 0;
    printer.isTagged = hasTag(firstLine(device / "dev"), root);
    return printer;
}

} // namespace

std::vector<SurveyedPrinter> surveyUsbPrinters(const std::string& vendor, const std::string& root)
{
    const fs::path bus = root + "/sys/bus/usb/devices";
    std::vector<SurveyedPrinter> printers;
    for (const auto& interface : entriesOf(bus)) {
        const auto name = interface.filename().string();
        const auto colon = name.find(':'); // "1-2:1.0" is an interface of the device "1-2"
        if (colon == std::string::npos || firstLine(interface / "bInterfaceClass") != kPrinterClass
            || firstLine(interface / "bInterfaceSubClass") != kPrinterSubclass)
            continue;
        const auto device = bus / name.substr(0, colon);
        if (firstLine(device / "idVendor") == vendor)
            printers.push_back(surveyed(interface, device, root));
    }
    return printers;
}

std::string holdersOfPort(const std::string& port, const std::string& vendor,
                          const std::string& root)
{
    std::string serial;
    if (!usbPortName::serialOf(port, serial))
        return {};
    std::vector<std::string> holders;
    for (const auto& printer : surveyUsbPrinters(vendor, root)) {
        if (printer.serial == plainText(serial))
            holders.insert(holders.end(), printer.holders.begin(), printer.holders.end());
    }
    return joined(holders);
}

std::string surveyedVendor()
{
    constexpr std::string_view kKey = "ATTR{idVendor}==\"";
    const auto rule = udevRuleLine();
    const auto at = rule.find(kKey);
    return at == std::string::npos ? "" : rule.substr(at + kKey.size(), 4);
}
