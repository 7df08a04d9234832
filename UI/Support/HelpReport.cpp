// SPDX-License-Identifier: MIT
#include "UI/Support/HelpReport.h"

#include "UI/Package/PackagePlace.h"
#include "UI/Run/RunHistory.h"
#include "UI/Support/Masking.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextList.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gnu/libc-version.h>
#include <set>
#include <sys/utsname.h>

namespace fs = std::filesystem;

namespace helpreport {

namespace {

using Kind = Masking::Kind;

constexpr const char* kIndent = "  ";

std::string heading(const std::string& title)
{
    return "\n" + title + "\n" + std::string(title.size(), '-') + "\n";
}

std::string row(const std::string& name, const std::string& value)
{
    return kIndent + name + ": " + (value.empty() ? "-" : value) + "\n";
}

// The system's name for itself: PRETTY_NAME="Debian GNU/Linux 12 (bookworm)".
std::string systemName()
{
    constexpr std::string_view kKey = "PRETTY_NAME=";
    std::ifstream file("/etc/os-release");
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(kKey))
            continue;
        auto name = line.substr(kKey.size());
        std::erase(name, '"');
        return plainText(name);
    }
    return "unknown";
}

std::string kernel()
{
    utsname names{};
    if (uname(&names) != 0)
        return "unknown";
    return plainText(std::string(names.sysname) + " " + names.release + " " + names.machine);
}

std::string versions(const Facts& facts)
{
    const char* language = std::getenv("LANG");
    return heading("Versions") + row("program", facts.program) + row("system", systemName())
        + row("kernel", kernel()) + row("language", plainText(language != nullptr ? language : ""))
        + row("C library", gnu_get_libc_version()) + row("libraries", joined(loadedLibraries()));
}

std::string findingsText(const std::vector<Finding>& findings)
{
    std::string text = heading("Findings");
    for (const auto& each : findings) {
        text += kIndent + std::string(findingStatusName(each.status)) + ", " + each.check + ": "
            + each.message + "\n";
        if (!each.mend.empty())
            text += std::string(kIndent) + kIndent + "What helps: " + each.mend + "\n";
    }
    return text;
}

std::string packageText(const OpenedPackage& opened)
{
    auto text = heading("Package");
    if (!opened.package.has_value())
        return text + kIndent + opened.problem + "\n";
    const auto& package = *opened.package;
    text += row("model", package.model) + row("product", package.product)
        + row("model names", joined(package.modelNames))
        + row("driver names", joined(package.driverNames))
        + row("USB models", joined(package.deviceIdModels))
        + row("TCP port", std::to_string(package.portNumber))
        + row("seconds to enter, leave, write",
              std::to_string(package.enterSeconds) + ", " + std::to_string(package.exitSeconds)
                  + ", " + std::to_string(package.updateSeconds))
        + row("file", package.file)
        + row("signed with",
              package.signature ? package.signature->key + " (" + package.signature->comment + ")"
                                : "");
    for (const auto& firmware : package.firmware)
        text += row("firmware " + std::to_string(firmware.number),
                    firmware.name + " " + firmware.version + " (" + firmware.displayName + " "
                        + firmware.displayVersion + "), "
                        + (firmware.bytes ? std::to_string(*firmware.bytes) + " bytes"
                                          : "not wholly in the package"));
    return text;
}

// Folders of installed programs and packages, the same on every computer.
bool isOfSystem(const std::string& folder)
{
    constexpr std::array kFolders = {"/usr/bin", "/usr/local/bin", "/usr/share/vymkit",
                                     "/usr/local/share/vymkit", "/usr/bin/../share/vymkit"};
    return std::find(kFolders.begin(), kFolders.end(), folder) != kFolders.end();
}

void hidePackage(Masking& masking, const OpenedPackage& opened, const Facts& facts)
{
    const auto place = findPackage(facts.packagePath);
    std::error_code error;
    if (!isOfSystem(place.folder))
        masking.hide(Kind::folder,
                     {place.folder, fs::absolute(place.folder, error).string(),
                      fs::weakly_canonical(place.folder, error).string()});
    if (opened.reason.fault == PackageFault::notFound) // it names all of them
        for (const auto& folder : searchedFolders())
            if (!isOfSystem(folder))
                masking.hide(Kind::folder, folder);
    if (place.isOtherName)
        masking.hide(Kind::package, fs::path(place.file).filename().string());
    if (!opened.package.has_value() || !opened.package->signature.has_value())
        return;
    // minisign writes the name that the file had into its comment, followed by a tab.
    const auto& comment = opened.package->signature->comment;
    const auto at = comment.find("file:");
    if (at == std::string::npos)
        return;
    const auto name = comment.substr(at + 5, comment.find_first_of("\\ ", at) - at - 5);
    if (name != kPackageName)
        masking.hide(Kind::package, name);
}

void hidePast(Masking& masking, const PastRun& run)
{
    if (!isOfSystem(run.package))
        masking.hide(Kind::folder, run.package);
    const bool isPortString = run.address.find(':') != std::string::npos;
    if (!isPortString)
        masking.hideMarked("net:" + run.address); // a host alone
}

Masking maskingOf(const OpenedPackage& opened, const Facts& facts, const PastRun* run)
{
    Masking masking;
    const auto& personal = facts.personal;
    masking.hide(Kind::home, personal.homes);
    for (const auto& each : personal.users)
        masking.hide(Kind::user, each);
    masking.hide(Kind::computer, personal.computer);
    hidePackage(masking, opened, facts);
    if (facts.doctor.address.has_value())
        masking.hideMarked("net:" + *facts.doctor.address);
    if (facts.doctor.uri.has_value())
        masking.hideMarked(*facts.doctor.uri);
    if (run != nullptr)
        hidePast(masking, *run);
    for (const auto& printer : surveyUsbPrinters(surveyedVendor(), ""))
        masking.hide(Kind::serial, printer.serial);
    return masking;
}

} // namespace

std::vector<std::string> loadedLibraries(const std::string& mapsFile)
{
    std::set<std::string> names;
    std::ifstream maps(mapsFile);
    for (std::string line; std::getline(maps, line);) {
        const auto name = fs::path(line.substr(std::min(line.find('/'), line.size()))).filename();
        if (name.string().starts_with("lib") && name.string().find(".so") != std::string::npos)
            names.insert(plainText(name.string()));
    }
    return {names.begin(), names.end()};
}

std::string compose(const OpenedPackage& opened, const Facts& facts)
{
    const auto runs = pastRuns(facts.doctor.logFolder);
    const auto findings = doctor::examine(opened, facts.doctor);
    auto text = "Report of Vymkit\n================\n\n"
                "Written for those who help. Names of people, computers and files, addresses and\n"
                "serial numbers are masked: each by the same stand-in wherever it occurs.\n"
        + findingsText(findings) + versions(facts) + packageText(opened) + heading("Last log")
        + (runs.empty() ? std::string(kIndent) + "No run has left a log yet.\n"
                        : logText(runs.front()));
    auto masking = maskingOf(opened, facts, runs.empty() ? nullptr : &runs.front());
    masking.hideMarked(text);
    return masking.masked(text);
}

} // namespace helpreport
