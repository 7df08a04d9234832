// SPDX-License-Identifier: MIT
#include "Tools/vympack/DiffCommand.h"

#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/PackageDiff.h"
#include "Tools/vympack/PrintableText.h"
#include "Tools/vympack/Report.h"

#include <nlohmann/json.hpp>

namespace vympack {

namespace {

using nlohmann::ordered_json;

// Empty, with a complaint, if the file is not a package with a readable description.
std::optional<PackageContent> readContent(const std::string& path, Streams streams)
{
    InputFile file;
    PackageContent content;
    if (openTable(path, file, content.table, streams))
        return std::nullopt;
    bool hasText = false;
    for (const auto& entry : content.table.entries) {
        const bool isReadable = isInside(entry, file);
        content.digests.push_back(isReadable ? file.digest(entry.offset, entry.size)
                                             : std::string());
        if (hasText || entry.name != kDescriptionName)
            continue;
        hasText = isReadable && entry.size <= kMostDescription
            && file.readText(entry.offset, entry.size, content.description);
    }
    if (!hasText)
        complain(streams, path, "has no description that can be read");
    return hasText ? std::optional(std::move(content)) : std::nullopt;
}

const char* kindName(DiffKind kind)
{
    switch (kind) {
    case DiffKind::row:
        return "row";
    case DiffKind::firmware:
        return "firmware";
    case DiffKind::image:
        return "image";
    case DiffKind::decision:
        return "decision";
    }
    return "";
}

std::string orNone(const std::string& side)
{
    return side.empty() ? "(not there)" : printable(side);
}

void writeDiff(std::ostream& out, const std::vector<Difference>& all)
{
    for (const auto& each : all)
        out << kindName(each.kind) << " " << printable(each.what) << "\n  - " << orNone(each.before)
            << "\n  + " << orNone(each.after) << "\n";
    out << all.size() << (all.size() == 1 ? " difference\n" : " differences\n");
}

ordered_json side(const std::string& value)
{
    return value.empty() ? ordered_json(nullptr) : ordered_json(printable(value));
}

void writeDiffJson(std::ostream& out, const DiffOrder& order, const std::vector<Difference>& all,
                   int code)
{
    auto list = ordered_json::array();
    for (const auto& each : all)
        list.push_back({{"kind", kindName(each.kind)},
                        {"what", printable(each.what)},
                        {"before", side(each.before)},
                        {"after", side(each.after)}});
    const ordered_json report{{"schema_version", kSchemaVersion},
                              {"command", "diff"},
                              {"exit_code", code},
                              {"before", printable(order.before)},
                              {"after", printable(order.after)},
                              {"differences", std::move(list)}};
    out << report.dump(kIndent) << "\n";
}

} // namespace

int diffFiles(const DiffOrder& order, Streams streams)
{
    const auto before = readContent(order.before, streams);
    const auto after = readContent(order.after, streams);
    if (!before || !after)
        return kExitNoInput;
    const auto all = diffPackages(*before, *after);
    const int code = all.empty() ? kExitDone : kExitDefects;
    if (order.json)
        writeDiffJson(streams.results, order, all, code);
    else
        writeDiff(streams.results, all);
    return code;
}

} // namespace vympack
