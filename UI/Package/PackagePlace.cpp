// SPDX-License-Identifier: MIT
#include "UI/Package/PackagePlace.h"

#include "VYM/BundlePath.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr const char* kData = "/usr/share/vymkit"; // for all users of this computer

bool holdsPackage(const std::string& folder)
{
    std::error_code error;
    return fs::exists(folder + "/" + kPackageName, error);
}

PackagePlace inFolder(const std::string& folder)
{
    return {folder, folder + "/" + kPackageName, false};
}

PackagePlace givenPlace(const std::string& given)
{
    std::error_code error;
    const auto status = fs::status(given, error);
    if (error || !fs::exists(status) || fs::is_directory(status))
        return inFolder(given);
    const fs::path path(given);
    const auto folder = path.parent_path().string();
    return {folder.empty() ? "." : folder, given, path.filename() != kPackageName};
}

// Empty if it is unknown.
std::string ownFolder()
{
    std::array<char, kBundlePathSize> folder{};
    return getBundleLocation(folder.data(), folder.size()) ? folder.data() : "";
}

} // namespace

PackagePlace findPackage(const std::optional<std::string>& given)
{
    return findPackage(given, given.has_value() ? "" : ownFolder(), kData);
}

PackagePlace findPackage(const std::optional<std::string>& given, const std::string& programFolder,
                         const std::string& data)
{
    if (given.has_value())
        return givenPlace(*given);
    for (const auto& folder : searchedFolders(programFolder, data))
        if (holdsPackage(folder))
            return inFolder(folder);
    return inFolder(programFolder);
}

std::vector<std::string> searchedFolders()
{
    return searchedFolders(ownFolder(), kData);
}

std::vector<std::string> searchedFolders(const std::string& programFolder, const std::string& data)
{
    std::vector<std::string> folders;
    if (!programFolder.empty()) {
        const auto shared = fs::path(programFolder + "/../share/vymkit").lexically_normal();
        folders = {programFolder, shared.string()};
    }
    if (std::find(folders.begin(), folders.end(), data) == folders.end())
        folders.push_back(data);
    return folders;
}
