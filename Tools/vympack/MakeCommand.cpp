// SPDX-License-Identifier: MIT
#include "Tools/vympack/MakeCommand.h"

#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/PackageCheck.h"
#include "Tools/vympack/Report.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

namespace vympack {

namespace {

bool openInputs(const std::vector<std::string>& paths, std::vector<Input>& inputs, Streams streams)
{
    bool all = true;
    for (const auto& path : paths) {
        Input input{path, path.substr(path.rfind('/') + 1), {}, {}};
        all = openInput(path, input.file, streams) && all;
        inputs.push_back(std::move(input));
    }
    return all;
}

// Every row end becomes CR LF: LF, CR LF, and a CR of its own.
std::string withRowEnds(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isWhole = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (isWhole)
            continue;
        if (text[i] == '\n' || text[i] == '\r')
            out += "\r\n";
        else
            out += text[i];
    }
    return out;
}

// The checks report a description that is too large to read.
void mendRowEnds(std::vector<Input>& inputs)
{
    for (auto& input : inputs) {
        std::string text;
        if (input.name == kDescriptionName && input.file.size() <= kMostDescription
            && input.file.readText(0, static_cast<std::size_t>(input.file.size()), text))
            input.text = withRowEnds(text);
    }
}

// Follows a link, so that the file that it points to is replaced.
std::string outputPath(const std::string& path)
{
    std::error_code error;
    const auto real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

int reportMade(const MakeOrder& order, const std::vector<PackedFile>& packed, ByteSink& out,
               std::ostream& words)
{
    const PackedFile whole{order.path, 0, out.written(), out.digest()};
    if (order.json)
        writeMadeJson(words, whole, packed);
    else
        writeMade(words, whole, packed);
    return kExitDone;
}

int fail(const MakeOrder& order, const ByteSink& out, Streams streams)
{
    complain(streams, order.path, out.reason());
    return out.exitCode();
}

// The package goes to the results' stream, so the report goes to the other one.
int writeToOutput(const MakeOrder& order, const std::vector<Input>& inputs, Streams streams)
{
    if (::isatty(STDOUT_FILENO) == 1) {
        complain(streams, order.path, "a package is nothing for a screen; send it to a file");
        return kExitUsage;
    }
    StandardOutput out;
    std::vector<PackedFile> packed;
    if (!writeContainer(inputs, out, packed))
        return fail(order, out, streams);
    return reportMade(order, packed, out, streams.errors);
}

int writeToFile(const MakeOrder& order, const std::vector<Input>& inputs, Streams streams)
{
    for (const auto& input : inputs) {
        if (input.file.isSameFile(order.path)) {
            complain(streams, order.path,
                     "is one of the files to put in; give another name after -o");
            return kExitUsage;
        }
    }
    AtomicFile out(order.force ? outputPath(order.path) : order.path,
                   order.force ? AtomicFile::Existing::replaced : AtomicFile::Existing::kept);
    std::vector<PackedFile> packed;
    if (!out.open() || !writeContainer(inputs, out, packed) || !out.commit())
        return fail(order, out, streams);
    return reportMade(order, packed, out, streams.results);
}

} // namespace

int makePackage(const MakeOrder& order, Streams streams)
{
    std::vector<Input> inputs;
    if (!openInputs(order.inputs, inputs, streams))
        return kExitNoInput;
    if (order.crlf)
        mendRowEnds(inputs);
    if (order.sort)
        std::stable_sort(inputs.begin(), inputs.end(), [](const auto& left, const auto& right) {
            return left.name < right.name;
        });
    Defects defects;
    checkInputs(inputs, order.path, defects);
    if (defects.errors() + defects.warnings() > 0)
        writeDefects(streams.errors, order.path, defects);
    if (defects.errors() > 0)
        return kExitDefects;
    return order.path == kStandardOutput ? writeToOutput(order, inputs, streams)
                                         : writeToFile(order, inputs, streams);
}

} // namespace vympack
