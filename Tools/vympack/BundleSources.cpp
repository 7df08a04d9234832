// SPDX-License-Identifier: MIT
#include "Tools/vympack/BundleSources.h"

#include <algorithm>
#include <filesystem>

namespace vympack {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kArchive = "!<arch>\ndebian-binary"; // how every Debian package begins
constexpr std::string_view kWizardPrefix = "vymkit_";
constexpr std::string_view kDebSuffix = ".deb";

std::string ownFolder()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path().string();
}

bool add(const std::string& path, BundledFile file, std::vector<BundledFile>& files,
         Streams streams)
{
    if (!openInput(path, file.file, streams))
        return false;
    files.push_back(std::move(file));
    return true;
}

// An installed program has its form in the data folder; a built one has it at its side.
std::string formOf(const std::string& folder)
{
    std::error_code error;
    const auto installed = folder + "/../share/vymkit/MainWindow.ui";
    return fs::exists(installed, error) ? installed : folder + "/MainWindow.ui";
}

// Other characters would need quoting in the text, where people copy the names from.
bool isPlain(const std::string& name)
{
    return std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')
            || std::string_view("._-+~").find(c) != std::string_view::npos;
    });
}

// The names of all files "vymkit_VERSION_ARCHITECTURE.deb"; false with a complaint if the folder
// cannot be read.
bool wizardDebs(const std::string& folder, std::vector<std::string>& names, Streams streams)
{
    std::error_code error;
    fs::directory_iterator item(folder, error);
    for (; !error && item != fs::directory_iterator(); item.increment(error)) {
        const auto name = item->path().filename().string();
        if (name.starts_with(kWizardPrefix) && name.ends_with(kDebSuffix) && isPlain(name))
            names.push_back(name);
    }
    if (error)
        complain(streams, folder, error.message());
    return !error;
}

bool isDeb(const InputFile& file)
{
    std::string begin;
    return file.size() > kArchive.size() && file.readText(0, kArchive.size(), begin)
        && begin == kArchive;
}

} // namespace

bool findPrograms(const std::string& folder, std::vector<BundledFile>& files, Streams streams)
{
    const auto from = folder.empty() ? ownFolder() : folder;
    bool all = true;
    for (const char* name : {"vymkit", "vymkit-cli"})
        all = add(from + "/" + name, {name, AtomicFile::Kind::program, {}}, files, streams) && all;
    all = add(formOf(from), {"MainWindow.ui", AtomicFile::Kind::data, {}}, files, streams) && all;
    if (!all)
        complain(streams, from,
                 "the programs to hand on are missing here; install them, or use --debs");
    return all;
}

bool findDebs(const std::string& folder, std::vector<BundledFile>& files,
              std::vector<std::string>& names, Streams streams)
{
    std::vector<std::string> wizards;
    if (!wizardDebs(folder, wizards, streams))
        return false;
    if (wizards.size() != 1) {
        complain(streams, folder,
                 wizards.empty() ? "there is no vymkit_VERSION_ARCHITECTURE.deb"
                                 : "there is more than one vymkit_*.deb; leave one version");
        return false;
    }
    names = {wizards[0], "vymkit-cli_" + wizards[0].substr(kWizardPrefix.size())};
    for (const auto& name : names) {
        const auto path = (fs::path(folder) / name).string();
        if (!add(path, {name, AtomicFile::Kind::data, {}}, files, streams))
            return false;
        if (!isDeb(files.back().file)) {
            complain(streams, path, "is no Debian package");
            return false;
        }
    }
    return true;
}

} // namespace vympack
