// SPDX-License-Identifier: MIT
#include "UI/Package/PackageFacts.h"

#include "UI/Package/PackagePlace.h"
#include "UI/Text/PlainText.h"
#include "VYM/BundlePath.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr const char* kDescription = "VYMINFO.txt";
// Far above any printer family.
constexpr unsigned kMostFirmware = 1000;
constexpr int kThisPlatform = 4; // this system's number in descriptions
constexpr int kHighestPort = 65535;

// A path is shown whole: a truncated one is useless.
std::string plainPath(const std::string& path)
{
    constexpr std::size_t kPathLimit = 4 * kBundlePathSize; // each byte of it may become an escape
    return plainText(path, kPathLimit);
}

using Getter = bool (*)(std::string&);
using ListGetter = bool (*)(std::vector<std::string>&);
using YesNoGetter = bool (*)(yesno_type&);
using IntGetter = bool (*)(int&);

std::string textOf(Getter getter)
{
    std::string text;
    getter(text);
    return plainText(text);
}

std::vector<std::string> listOf(ListGetter getter)
{
    std::vector<std::string> texts;
    getter(texts);
    for (auto& text : texts)
        text = plainText(text);
    return texts;
}

yesno_type answerOf(YesNoGetter getter)
{
    yesno_type answer = yesno_none;
    getter(answer);
    return answer;
}

int numberOf(IntGetter getter)
{
    int number = -1;
    getter(number);
    return number;
}

// All facts of the row except the size of its image.
std::optional<PackagedFirmware> readFirmware(unsigned index, std::string& file)
{
    std::string name;
    std::string version;
    std::string nameInPrinter;
    std::string compatible;
    std::string header;
    file.clear();
    if (!vyminfo_getVersion(index, name, version, file, nameInPrinter, compatible, header))
        return std::nullopt;
    std::string displayName;
    std::string displayVersion;
    vyminfo_getDispFirmVersion(index, displayName, displayVersion);
    return PackagedFirmware{index + 1,
                            plainText(name),
                            plainText(version),
                            plainText(displayName.empty() ? name : displayName),
                            plainText(displayVersion.empty() ? version : displayVersion),
                            plainText(nameInPrinter),
                            plainText(compatible),
                            plainText(file),
                            std::nullopt};
}

std::vector<PackagedFirmware> readAllFirmware()
{
    std::vector<PackagedFirmware> all;
    std::vector<std::string> files;
    std::string file;
    while (all.size() <= kMostFirmware) {
        auto firmware = readFirmware(static_cast<unsigned>(all.size()), file);
        if (!firmware.has_value())
            break;
        all.push_back(std::move(*firmware));
        files.emplace_back(file.c_str()); // a name ends at a NUL
    }
    if (auto* container = vymBindInfo::Instance(); container != nullptr)
        container->lookUp(files);
    for (std::size_t i = 0; i < all.size(); ++i) {
        unsigned long size = 0;
        if (vymbind_getFileSize(files[i].c_str(), size))
            all[i].bytes = size;
    }
    return all;
}

void readSystemBounds(PackageFacts& package)
{
    long highest = 0;
    long lowest = 0;
    if (!vyminfo_getPlatformVersion(kThisPlatform, highest, lowest))
        return;
    package.lowestSystem = lowest;
    if (highest >= 0) // a negative one means that there is none
        package.highestSystem = highest;
}

PackageFacts readPackage(const std::string& folder)
{
    PackageFacts package{plainPath(folder),
                         textOf(vyminfo_getTgmName),
                         textOf(vyminfo_getProductName),
                         listOf(vyminfo_getModelNameArray),
                         listOf(vyminfo_getDriverName),
                         listOf(vyminfo_getPort),
                         listOf(vyminfo_getDeviceIDModelName),
                         numberOf(vyminfo_getPortNo),
                         numberOf(vyminfo_getEnterTime),
                         numberOf(vyminfo_getExitTime),
                         numberOf(vyminfo_getUpdateTime),
                         answerOf(vyminfo_getNeedEnterOperation),
                         answerOf(vyminfo_getNeedExitOparetion),
                         answerOf(vyminfo_getAllowVersionDown),
                         answerOf(vyminfo_getSpecialCmdPattern),
                         {},
                         {},
                         readAllFirmware()};
    readSystemBounds(package);
    return package;
}

std::string withAdvice(const std::string& why, const std::string& file)
{
    return why + " Run \"vympack check " + plainPath(file) + "\" to see what is wrong with it.";
}

// Why the file cannot be opened; empty if it can.
std::string unreachable(const std::string& folder, const std::string& file)
{
    const std::string advice = " Give the folder that holds " + std::string(kPackageName)
        + " with --package FOLDER, or the file itself.";
    std::error_code error;
    if (!fs::is_directory(folder, error))
        return "There is no folder '" + plainPath(folder) + "' that can be read." + advice;
    if (!fs::exists(file, error))
        return "The folder '" + plainPath(folder) + "' holds no " + kPackageName + "." + advice;
    if (!fs::is_regular_file(file, error)) // a pipe or a device would never end
        return "'" + plainPath(file) + "' is not a file." + advice;
    if (access(file.c_str(), R_OK) != 0)
        return "'" + plainPath(file) + "' must not be read by you. Ask its owner for permission.";
    return {};
}

// Loads the container's description; returns why that is impossible, or empty.
std::string loadDescription(const std::string& file)
{
    unsigned long size = 0;
    if (!vymbind_isContainer())
        return withAdvice("'" + plainPath(file) + "' is not an update package, or is damaged.",
                          file);
    if (!vymbind_getFileSize(kDescription, size))
        return withAdvice("The package holds no description (VYMINFO.txt).", file);
    if (size > kLargestDescription)
        return withAdvice("The package's description is larger than 16 MiB.", file);
    if (vyminfo_loadfile() != 0)
        return "There is not enough memory to read the package.";
    if (g_VymInfo.longestKnownRow() > kLongestRow)
        return withAdvice("The package's description has a row of more than "
                              + std::to_string(kLongestRow) + " bytes.",
                          file);
    return {};
}

std::string problemOf(const PackageFacts& package, const std::string& file)
{
    if (package.firmware.empty())
        return withAdvice("The package's description lists no firmware.", file);
    if (package.firmware.size() > kMostFirmware)
        return withAdvice(
            "The package lists more than " + std::to_string(kMostFirmware) + " firmware.", file);
    if (package.portNumber < 1 || package.portNumber > kHighestPort)
        return withAdvice("The package's port number is not one from 1 to 65535.", file);
    return {};
}

OpenedPackage unusable(std::string problem)
{
    return {std::nullopt, std::move(problem), PackageState::unusable};
}

OpenedPackage notTrusted(std::string problem)
{
    vymBindInfo::Instance()->CloseVymFile();
    g_VymInfo.loadData("", 0, load_vyminfo);
    return {std::nullopt, std::move(problem), PackageState::notTrusted};
}

OpenedPackage stopped()
{
    return {std::nullopt, "Stopped while the package was being read.", PackageState::stopped};
}

} // namespace

OpenedPackage openPackage(const std::optional<std::string>& path)
{
    PackageRequest request;
    request.path = path;
    return openPackage(request);
}

OpenedPackage openPackage(const PackageRequest& request)
{
    const auto shouldStop = [&request] { return request.shouldStop && request.shouldStop(); };
    const auto [where, file, isOtherName] = findPackage(request.path);
    if (!setBundleLocation(where.c_str()) || !setBundleFile(isOtherName ? file.c_str() : ""))
        return unusable("The package's folder or file has too long a name.");
    if (auto problem = unreachable(where, file); !problem.empty())
        return unusable(std::move(problem));
    if (shouldStop())
        return stopped();
    TrustResult trust;
    if (vymbind_isContainer()) {
        trust = checkTrust(*vymBindInfo::Instance(), file, request.trust, request.shouldStop);
        if (trust.wasStopped)
            return stopped();
        if (!trust.isTrusted)
            return notTrusted(std::move(trust.problem));
    }
    if (auto problem = loadDescription(file); !problem.empty())
        return unusable(std::move(problem));
    if (shouldStop())
        return stopped();
    auto package = readPackage(where);
    package.file = plainPath(file);
    package.signature = std::move(trust.signature);
    package.sha256 = std::move(trust.sha256);
    if (auto problem = problemOf(package, file); !problem.empty())
        return unusable(std::move(problem));
    return {std::move(package), {}, PackageState::usable};
}

std::string unfitForUpdate(const PackageFacts& package)
{
    const auto& file = package.file;
    if (package.model.empty())
        return withAdvice("The package does not say for which model it is (TGMNAME).", file);
    if (package.updateSeconds <= 0)
        return withAdvice("The package does not say how long a firmware may take (UPDATETIME).",
                          file);
    const auto missing =
        std::find_if(package.firmware.begin(), package.firmware.end(),
                     [](const auto& firmware) { return !firmware.bytes.has_value(); });
    if (missing == package.firmware.end())
        return {};
    return withAdvice("The image '" + missing->file + "' of firmware "
                          + std::to_string(missing->number) + " (" + missing->displayName
                          + ") is not wholly in the package.",
                      file);
}
