// SPDX-License-Identifier: MIT
#include "Tools/vympack/Extraction.h"

#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/FileNames.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace vympack {

namespace {

// Why an entry's data must not be written to a path, or empty.
std::string whyRefused(const InputFile& file, const Entry& entry, const std::string& path,
                       bool force)
{
    std::error_code error;
    if (!entry.terminated)
        return "its name has no closing NUL";
    if (const auto reason = whyUnsafe(entry.name); !reason.empty())
        return "its name " + std::string(reason);
    if (!isInside(entry, file))
        return "its data does not lie inside the package";
    if (!force && std::filesystem::exists(std::filesystem::symlink_status(path, error)))
        return path + " exists; --force replaces it";
    return {};
}

std::string unpack(const InputFile& file, const Entry& entry, const ExtractionOrder& order,
                   int& exitCode)
{
    const auto path = order.folder + "/" + entry.name;
    if (auto reason = whyRefused(file, entry, path, order.force); !reason.empty())
        return reason;
    AtomicFile out(path, order.force ? AtomicFile::Existing::replaced : AtomicFile::Existing::kept);
    if (!out.open() || !out.copy(file, entry.offset, entry.size) || !out.commit()) {
        exitCode = std::max(exitCode, out.exitCode());
        return path + ": " + out.reason();
    }
    return {};
}

} // namespace

ExtractionResult extract(const InputFile& file, const Table& table, const ExtractionOrder& order)
{
    ExtractionResult result;
    std::set<std::string> wanted(order.names.begin(), order.names.end());
    std::set<std::string> taken;
    for (const auto& entry : table.entries) {
        if (!order.names.empty() && !wanted.contains(entry.name))
            continue;
        // Of two files with the same name, readers see only the first.
        const auto reason = taken.insert(entry.name).second
            ? unpack(file, entry, order, result.exitCode)
            : "an earlier file of the package has that name";
        if (reason.empty())
            result.written.push_back(entry.name);
        else
            result.refusals.push_back("\"" + entry.name + "\": " + reason);
        if (result.exitCode == kExitInterrupted)
            return result;
    }
    for (const auto& name : wanted) {
        if (!taken.contains(name))
            result.refusals.push_back("\"" + name + "\": there is no such file in the package");
    }
    if (!result.refusals.empty())
        result.exitCode = std::max(result.exitCode, kExitDefects);
    return result;
}

} // namespace vympack
