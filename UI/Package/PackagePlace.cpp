// SPDX-License-Identifier: MIT
#include "UI/Package/PackagePlace.h"

#include "VYM/BundlePath.h"
#include "VYM/vymMac.h"

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

} // namespace

PackagePlace findPackage(const std::optional<std::string>& given)
{
    std::array<char, kBundlePathSize> folder{};
    const bool isKnown = given.has_value() || getBundleLocation(folder.data(), folder.size());
    return findPackage(given, isKnown ? folder.data() : "", kData);
}

PackagePlace findPackage(const std::optional<std::string>& given, const std::string& programFolder,
                         const std::string& data)
{
    if (given.has_value())
        return givenPlace(*given);
    for (const auto& folder : {programFolder, programFolder + "/../share/vymkit", data})
        if (holdsPackage(folder))
            return inFolder(folder);
    return inFolder(programFolder);
}
