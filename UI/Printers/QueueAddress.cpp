// SPDX-License-Identifier: MIT
#include "UI/Printers/QueueAddress.h"

#include "UI/VYM_Utilities.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr const char* kDriverScheme = "tzrq";
constexpr std::array<const char*, 2> kDriverFolders = {"/Library/Printers/Morix",
                                                       "/Library/Caches/Morix"};
constexpr const char* kDaemonEntry = "RLPD";

// The folders in a folder, sorted, since the order must not depend on the file system. Empty if the
// folder cannot be read.
std::vector<std::string> foldersWithDaemon(const std::string& parent)
{
    std::vector<std::string> found;
    std::error_code error;
    for (fs::directory_iterator each(parent, error), end; !error && each != end;
         each.increment(error)) {
        std::error_code unknown; // an unreadable entry is no folder
        if (fs::is_directory(each->path(), unknown)
            && fs::exists(fs::symlink_status(each->path() / kDaemonEntry, unknown)))
            found.push_back(each->path().string());
    }
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace

bool isDriverUri(const std::string& uri)
{
    return uri.starts_with(kDriverScheme);
}

std::optional<std::string> driverAddressOf(const std::string& queueIdentifier,
                                           const std::string& root)
{
    for (const auto* parent : kDriverFolders) {
        for (const auto& folder : foldersWithDaemon(root + parent)) {
            if (auto address = VYM_Utilities::getPrinterAddressFromID(queueIdentifier, folder))
                return address;
        }
    }
    return std::nullopt;
}

std::string driverFolderRoot()
{
    const char* root = std::getenv("VYMKIT_DRIVER_ROOT");
    return root != nullptr ? root : "";
}
