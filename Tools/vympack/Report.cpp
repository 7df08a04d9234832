// SPDX-License-Identifier: MIT
#include "Tools/vympack/Report.h"

#include "Tools/vympack/PrintableText.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <set>

namespace vympack {

namespace {

using nlohmann::ordered_json;

constexpr int kNumberWidth = 10; // the digits of the largest 32-bit number

const char* severityName(Severity severity)
{
    return severity == Severity::error ? "error" : "warning";
}

std::string placeText(const Place& place)
{
    auto text = printable(place.file);
    if (!place.member.empty())
        text.append("(").append(printable(place.member)).append(")");
    if (place.row > 0)
        text.append(":")
            .append(std::to_string(place.row))
            .append(":")
            .append(std::to_string(place.column));
    if (place.offset)
        text.append(": byte ").append(std::to_string(*place.offset));
    return text;
}

ordered_json number(std::size_t value)
{
    return value == 0 ? ordered_json(nullptr) : ordered_json(value);
}

ordered_json text(const std::string& value)
{
    return value.empty() ? ordered_json(nullptr) : ordered_json(printable(value));
}

ordered_json toJson(const Defect& defect)
{
    const auto& place = defect.place;
    return {{"severity", severityName(defect.kind.severity)},
            {"name", defect.kind.name},
            {"file", printable(place.file)},
            {"member", text(place.member)},
            {"offset", place.offset ? ordered_json(*place.offset) : ordered_json(nullptr)},
            {"row", number(place.row)},
            {"column", number(place.column)},
            {"message", printable(defect.message)},
            {"why", defect.kind.why},
            {"write", text(defect.instead)}};
}

std::string counted(std::size_t count, const char* what)
{
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

void writeDefects(std::ostream& out, const std::string& path, const Defects& defects)
{
    std::set<std::string_view> explained;
    for (const auto& defect : defects.kept()) {
        out << placeText(defect.place) << ": " << severityName(defect.kind.severity) << ": "
            << printable(defect.message) << " [" << defect.kind.name << "]\n";
        if (explained.insert(defect.kind.why).second)
            out << "    why: " << defect.kind.why << "\n";
        if (!defect.instead.empty())
            out << "    write: " << printable(defect.instead) << "\n";
    }
    const auto all = defects.errors() + defects.warnings();
    if (all > defects.kept().size())
        out << "(" << all - defects.kept().size() << " more of the same kinds)\n";
    out << printable(path) << ": " << counted(defects.errors(), "error") << ", "
        << counted(defects.warnings(), "warning") << "\n";
}

void writeDefectsJson(std::ostream& out, const std::string& path, const Defects& defects,
                      int exitCode)
{
    auto list = ordered_json::array();
    for (const auto& defect : defects.kept())
        list.push_back(toJson(defect));
    const ordered_json report{{"schema_version", kSchemaVersion},
                              {"command", "check"},
                              {"exit_code", exitCode},
                              {"file", printable(path)},
                              {"errors", defects.errors()},
                              {"warnings", defects.warnings()},
                              {"defects", std::move(list)}};
    out << report.dump(kIndent) << "\n";
}

void writeTable(std::ostream& out, const Table& table)
{
    for (const auto& entry : table.entries)
        out << std::setw(kNumberWidth) << entry.offset << "  " << std::setw(kNumberWidth)
            << entry.size << "  " << printable(entry.name) << "\n";
}

void writeTableJson(std::ostream& out, const std::string& path, const Table& table)
{
    auto files = ordered_json::array();
    for (const auto& entry : table.entries)
        files.push_back(
            {{"name", printable(entry.name)}, {"offset", entry.offset}, {"size", entry.size}});
    const ordered_json report{{"schema_version", kSchemaVersion},
                              {"command", "list"},
                              {"file", printable(path)},
                              {"files", std::move(files)}};
    out << report.dump(kIndent) << "\n";
}

void writeMade(std::ostream& out, const PackedFile& whole, const std::vector<PackedFile>& files)
{
    out << printable(whole.name) << ": " << counted(files.size(), "file") << ", "
        << counted(whole.size, "byte") << ", SHA-256 " << whole.sha256 << "\n";
    for (const auto& file : files)
        out << std::setw(kNumberWidth) << file.size << "  " << file.sha256 << "  "
            << printable(file.name) << "\n";
}

void writeMadeJson(std::ostream& out, const PackedFile& whole, const std::vector<PackedFile>& files)
{
    auto list = ordered_json::array();
    for (const auto& file : files)
        list.push_back({{"name", printable(file.name)},
                        {"offset", file.offset},
                        {"size", file.size},
                        {"sha256", file.sha256}});
    const ordered_json report{{"schema_version", kSchemaVersion}, {"command", "make"},
                              {"file", printable(whole.name)},    {"size", whole.size},
                              {"sha256", whole.sha256},           {"files", std::move(list)}};
    out << report.dump(kIndent) << "\n";
}

} // namespace vympack
