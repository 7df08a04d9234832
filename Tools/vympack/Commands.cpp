#include "Tools/vympack/Commands.h"

#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/PackageCheck.h"
#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/Report.h"

#include <filesystem>
#include <optional>

namespace vympack {

namespace {

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

bool openInputs(const std::vector<std::string>& paths, std::vector<Input>& inputs, Streams streams)
{
    bool all = true;
    for (const auto& path : paths) {
        Input input{path, path.substr(path.rfind('/') + 1), {}};
        all = openInput(path, input.file, streams) && all;
        inputs.push_back(std::move(input));
    }
    return all;
}

// A link is followed, so that the file it leads to is what is replaced.
std::string outputPath(const std::string& path)
{
    std::error_code error;
    const auto real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

int writePackage(const std::string& path, const std::vector<Input>& inputs, Streams streams)
{
    for (const auto& input : inputs) {
        if (input.file.isSameFile(path)) {
            complain(streams, path, "is one of the files to put in; give another name behind -o");
            return kExitUsage;
        }
    }
    AtomicFile out(outputPath(path));
    if (out.open() && writeContainer(inputs, out) && out.commit())
        return kExitDone;
    complain(streams, path, out.reason());
    return kExitNoOutput;
}

// Opens a package and reads its table; an exit code when that fails.
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

} // namespace

int makePackage(const std::string& path, const std::vector<std::string>& inputs, Streams streams)
{
    std::vector<Input> opened;
    if (!openInputs(inputs, opened, streams))
        return kExitNoInput;
    Defects defects;
    checkInputs(opened, path, defects);
    if (defects.errors() + defects.warnings() > 0)
        writeDefects(streams.errors, path, defects);
    if (defects.errors() > 0)
        return kExitDefects;
    return writePackage(path, opened, streams);
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
    return result.refusals.empty() ? kExitDone : kExitDefects;
}

int checkPackage(const std::string& path, bool json, Streams streams)
{
    InputFile file;
    if (!openInput(path, file, streams))
        return kExitNoInput;
    Defects defects;
    checkContainer(file, path, defects);
    if (json)
        writeDefectsJson(streams.results, path, defects);
    else
        writeDefects(streams.results, path, defects);
    return defects.errors() > 0 ? kExitDefects : kExitDone;
}

} // namespace vympack
