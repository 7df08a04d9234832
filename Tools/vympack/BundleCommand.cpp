// SPDX-License-Identifier: MIT
#include "Tools/vympack/BundleCommand.h"

#include "Tools/vympack/BundleSources.h"
#include "Tools/vympack/BundleText.h"
#include "Tools/vympack/EnginePackage.h"
#include "Tools/vympack/PackageCheck.h"
#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/Report.h"
#include "Tools/vympack/StagedFolder.h"
#include "UI/Package/PackagePlace.h"

#include <filesystem>

namespace vympack {

namespace {

// Adds the package and its signature under the names that the programs look for. Returns an exit
// code on failure.
std::optional<int> addPackage(const std::string& path, std::vector<BundledFile>& files,
                              Streams streams)
{
    BundledFile package{kPackageName, AtomicFile::Kind::data, {}};
    if (!openInput(path, package.file, streams))
        return kExitNoInput;
    Defects defects;
    checkContainer(package.file, path, defects);
    if (defects.errors() + defects.warnings() > 0)
        writeDefects(streams.errors, path, defects);
    if (defects.errors() > 0)
        return kExitDefects;
    files.push_back(std::move(package));
    const auto signature = path + kSignatureSuffix;
    std::error_code error;
    if (!std::filesystem::exists(std::filesystem::symlink_status(signature, error)))
        return std::nullopt;
    BundledFile signedBy{std::string(kPackageName) + kSignatureSuffix, AtomicFile::Kind::data, {}};
    if (!openInput(signature, signedBy.file, streams))
        return kExitNoInput;
    files.push_back(std::move(signedBy));
    return std::nullopt;
}

// The start script comes last: a folder that has it is complete.
bool fill(StagedFolder& folder, const std::vector<BundledFile>& files, const BundleWords& words)
{
    if (!folder.open())
        return false;
    for (const auto& file : files) {
        if (!folder.add(file.name, file.file, file.kind))
            return false;
    }
    return folder.add("LICENSE", licenceText()) && folder.add(kReadMe, readMe(words))
        && folder.add("start", startScript(words), AtomicFile::Kind::program) && folder.commit();
}

} // namespace

int bundlePackage(const BundleOrder& order, Streams streams)
{
    const auto path = findPackage(order.package).file;
    std::vector<BundledFile> files;
    if (const auto failed = addPackage(path, files, streams))
        return *failed;
    const EnginePackage package(path);
    if (package.facts() == nullptr) {
        complain(streams, path, package.problem());
        return kExitNoInput;
    }
    BundleWords words{package.facts()->model, {}};
    const bool found = order.debs.empty() ? findPrograms(order.programs, files, streams)
                                          : findDebs(order.debs, files, words.debs, streams);
    if (!found)
        return kExitNoInput;
    StagedFolder folder(order.folder);
    if (!fill(folder, files, words)) {
        complain(streams, order.folder, folder.reason());
        return folder.exitCode();
    }
    streams.results << printable(order.folder) << ": ready for the printer " << words.model << "\n";
    return kExitDone;
}

} // namespace vympack
