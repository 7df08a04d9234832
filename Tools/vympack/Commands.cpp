// SPDX-License-Identifier: MIT
#include "Tools/vympack/Commands.h"

#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/Report.h"

#include <filesystem>

namespace vympack {

void complain(Streams streams, const std::string& what, const std::string& reason)
{
    streams.errors << "vympack: " << printable(what) << ": " << printable(reason) << "\n";
}

bool openInput(const std::string& path, InputFile& file, Streams streams)
{
    std::string reason;
    if (file.open(path, reason))
        return true;
    complain(streams, path, reason);
    return false;
}

std::optional<int> openTable(const std::string& path, InputFile& file, Table& table,
                             Streams streams)
{
    if (!openInput(path, file, streams))
        return kExitNoInput;
    Defects defects;
    auto read = readTable(file, path, defects);
    if (!read) {
        writeDefects(streams.errors, path, defects);
        return kExitDefects;
    }
    table = std::move(*read);
    return std::nullopt;
}

int listPackage(const std::string& path, bool json, Streams streams)
{
    InputFile file;
    Table table;
    if (const auto failed = openTable(path, file, table, streams))
        return *failed;
    if (json)
        writeTableJson(streams.results, path, table);
    else
        writeTable(streams.results, table);
    return kExitDone;
}

int extractPackage(const std::string& path, const ExtractionOrder& order, Streams streams)
{
    InputFile file;
    Table table;
    if (const auto failed = openTable(path, file, table, streams))
        return *failed;
    std::error_code error;
    std::filesystem::create_directories(order.folder, error);
    if (error) {
        complain(streams, order.folder, error.message());
        return kExitNoOutput;
    }
    const auto result = extract(file, table, order);
    for (const auto& name : result.written)
        streams.results << printable(name) << "\n";
    for (const auto& refusal : result.refusals)
        complain(streams, path, refusal);
    return result.exitCode;
}

} // namespace vympack
