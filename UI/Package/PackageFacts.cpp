// SPDX-License-Identifier: MIT
#include "UI/Package/PackageFacts.h"

#include "UI/Package/PackagePlace.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextList.h"
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

// All places where a package without a name was looked for.
std::string searchedPlaces()
{
    std::vector<std::string> places;
    for (const auto& folder : searchedFolders())
        places.push_back("'" + plainPath(folder + "/" + kPackageName) + "'");
    return joined(places);
}

// Why the file cannot be opened. given: whether the user named it.
PackageReason unreachable(const std::string& folder, const std::string& file, bool given)
{
    std::error_code error;
    if (!given && !fs::exists(file, error))
        return {PackageFault::notFound, searchedPlaces()};
    if (!fs::is_directory(folder, error))
        return {PackageFault::noFolder, plainPath(folder)};
    if (!fs::exists(file, error))
        return {PackageFault::notInFolder, plainPath(folder)};
    if (!fs::is_regular_file(file, error)) // a pipe or a device would never end
        return {PackageFault::notAFile, plainPath(file)};
    if (access(file.c_str(), R_OK) != 0)
        return {PackageFault::notReadable, plainPath(file)};
    return {};
}

// Loads the container's description; returns why that is impossible.
PackageReason loadDescription(const std::string& file)
{
    constexpr std::uint32_t kMiB = 1024 * 1024;
    static_assert(kLargestDescription % kMiB == 0);
    unsigned long size = 0;
    if (!vymbind_isContainer())
        return {PackageFault::notAPackage, plainPath(file)};
    if (!vymbind_getFileSize(kDescription, size))
        return {PackageFault::noDescription, plainPath(file)};
    if (size > kLargestDescription)
        return {PackageFault::largeDescription, plainPath(file), kLargestDescription / kMiB};
    if (vyminfo_loadfile() != 0)
        return {PackageFault::noMemory};
    if (g_VymInfo.longestKnownRow() > kLongestRow)
        return {PackageFault::longRow, plainPath(file), kLongestRow};
    return {};
}

PackageReason problemOf(const PackageFacts& package)
{
    if (package.firmware.empty())
        return {PackageFault::noFirmware, package.file};
    if (package.firmware.size() > kMostFirmware)
        return {PackageFault::manyFirmware, package.file, kMostFirmware};
    if (package.portNumber < 1 || package.portNumber > kHighestPort)
        return {PackageFault::badPort, package.file};
    return {};
}

OpenedPackage refused(PackageReason reason, PackageState state)
{
    return {std::nullopt, englishWords(reason), state, std::move(reason)};
}

OpenedPackage unusable(PackageReason reason)
{
    return refused(std::move(reason), PackageState::unusable);
}

OpenedPackage notTrusted(PackageReason reason)
{
    vymBindInfo::Instance()->CloseVymFile();
    g_VymInfo.loadData("", 0, load_vyminfo);
    return refused(std::move(reason), PackageState::notTrusted);
}

OpenedPackage stopped()
{
    return refused({PackageFault::stopped}, PackageState::stopped);
}

bool isSet(const PackageReason& reason)
{
    return reason.fault != PackageFault::none;
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
        return unusable({PackageFault::nameTooLong});
    if (auto reason = unreachable(where, file, request.path.has_value()); isSet(reason))
        return unusable(std::move(reason));
    if (shouldStop())
        return stopped();
    TrustResult trust;
    if (vymbind_isContainer()) {
        trust = checkTrust(*vymBindInfo::Instance(), file, request.trust, request.shouldStop);
        if (trust.wasStopped)
            return stopped();
        if (!trust.isTrusted)
            return notTrusted(std::move(trust.reason));
    }
    if (auto reason = loadDescription(file); isSet(reason))
        return unusable(std::move(reason));
    if (shouldStop())
        return stopped();
    auto package = readPackage(where);
    package.file = plainPath(file);
    package.signature = std::move(trust.signature);
    package.sha256 = std::move(trust.sha256);
    if (auto reason = problemOf(package); isSet(reason))
        return unusable(std::move(reason));
    return {std::move(package), {}, PackageState::usable, {}};
}

std::string unfitForUpdate(const PackageFacts& package)
{
    const auto& file = package.file;
    if (package.model.empty())
        return withCheckAdvice("The package does not say for which model it is (TGMNAME).", file);
    if (package.updateSeconds <= 0)
        return withCheckAdvice(
            "The package does not say how long a firmware may take (UPDATETIME).", file);
    const auto missing =
        std::find_if(package.firmware.begin(), package.firmware.end(),
                     [](const auto& firmware) { return !firmware.bytes.has_value(); });
    if (missing == package.firmware.end())
        return {};
    return withCheckAdvice("The image '" + missing->file + "' of firmware "
                               + std::to_string(missing->number) + " (" + missing->displayName
                               + ") is not wholly in the package.",
                           file);
}
