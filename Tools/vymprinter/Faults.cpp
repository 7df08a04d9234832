// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/FaultTable.h"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <numeric>
#include <utility>

namespace vymprinter {
namespace {

constexpr std::size_t kNear = 3; // the most typing mistakes in a name that is still suggested
constexpr std::string_view kSeeList = "`--fault list` shows all";

constexpr std::string_view kListHead =
    "Faults are written NAME[@STAGE[:N]]. Each connection counts for itself: N is the number of\n"
    "the request of that stage, from 1; at piece it is how many bytes of firmware have arrived;\n"
    "at connect it is the number of the connection, and without it every connection is meant.\n";

// The number of letters to insert, delete or change to turn one word into the other.
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const auto changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

bool isNear(std::string_view name, std::string_view typed)
{
    return distance(name, typed) <= kNear
        || (typed.size() >= kNear
            && (name.find(typed) != name.npos || typed.find(name) != typed.npos));
}

std::string unknownName(std::string_view typed)
{
    std::string near;
    for (const auto& row : faultTable())
        if (isNear(row.name, typed))
            near += (near.empty() ? "" : ", ") + std::string(row.name);
    return "there is no fault '" + std::string(typed) + "'"
        + (near.empty() ? "; " : "; did you mean " + near + "? ") + std::string(kSeeList);
}

std::string stageNames(unsigned stages)
{
    std::string names;
    for (const auto& row : stageTable())
        if (stages & stageBit(row.stage))
            names += (names.empty() ? "" : ", ") + std::string(row.name);
    return names;
}

// Reads "STAGE" or "STAGE:N"; returns what is wrong, or empty.
std::string readStage(std::string_view text, const FaultRow& row, Fault& fault)
{
    const auto colon = text.find(':');
    const auto name = text.substr(0, colon);
    const auto stages = stageTable();
    const auto found = std::find_if(stages.begin(), stages.end(),
                                    [&](const auto& stage) { return stage.name == name; });
    if (found == stages.end() || (row.stages & stageBit(found->stage)) == 0)
        return std::string(row.name) + " cannot strike at '" + std::string(name)
            + "'; its stages: " + stageNames(row.stages);
    fault.stage = found->stage;
    if (colon == text.npos)
        return {};
    const auto digits = text.substr(colon + 1);
    std::uint64_t at = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), at);
    const bool whole = error == std::errc{} && end == digits.data() + digits.size();
    if (!whole || (at == 0 && fault.stage != Stage::piece))
        return "'" + std::string(digits) + "' is not a count; write " + std::string(row.name) + '@'
            + std::string(name) + ":N with N from " + (fault.stage == Stage::piece ? "0" : "1");
    fault.at = at;
    return {};
}

} // namespace

ParsedFault parseFault(const std::string& text)
{
    const std::string_view spec = text;
    const auto stageAt = spec.find('@');
    const auto valueAt = spec.substr(0, stageAt).find('=');
    const auto name = spec.substr(0, std::min(stageAt, valueAt));
    const auto table = faultTable();
    const auto row = std::find_if(table.begin(), table.end(),
                                  [&](const auto& entry) { return entry.name == name; });
    if (row == table.end())
        return {std::nullopt, unknownName(name)};

    Fault fault{row->kind, row->usual, std::nullopt, {}};
    if (valueAt != spec.npos)
        fault.value = spec.substr(0, stageAt).substr(valueAt + 1);
    if (row->wantsValue && fault.value.empty())
        return {std::nullopt, "write " + std::string(name) + "=VALUE"};
    if (!row->wantsValue && valueAt != spec.npos)
        return {std::nullopt, std::string(name) + " takes no value"};
    if (stageAt != spec.npos)
        if (auto error = readStage(spec.substr(stageAt + 1), *row, fault); !error.empty())
            return {std::nullopt, std::move(error)};
    return {std::move(fault), {}};
}

std::string faultList()
{
    std::string list(kListHead);
    for (const auto& row : faultTable()) {
        list += '\n' + std::string(row.name) + (row.wantsValue ? "=VALUE" : "") + ": "
            + std::string(row.does) + ".\n    The user sees: " + std::string(row.seen)
            + ".\n    Stage: " + stageNames(stageBit(row.usual));
        if (row.stages != stageBit(row.usual))
            list += ", when none is named; can be " + stageNames(row.stages);
        list += row.usbOnly ? ". Only with --usb.\n" : ".\n";
    }
    return list;
}

std::string_view faultName(FaultKind kind)
{
    return faultRow(kind).name;
}

std::string FaultSet::names() const
{
    std::string names;
    for (const auto& row : faultTable())
        if (has(row.kind))
            names += (names.empty() ? "" : ",") + std::string(row.name);
    return names;
}

FaultPlan::FaultPlan(std::vector<Fault> faults)
    : m_faults(std::move(faults)), m_struck(m_faults.size()), m_requests(stageTable().size())
{
}

void FaultPlan::strike(std::size_t index, FaultSet& now)
{
    assert(index < m_faults.size());
    const auto kind = m_faults[index].kind;
    now.add(kind);
    m_struck[index] = true;
    if (faultRow(kind).span == Span::connection)
        m_lasting.add(kind);
}

FaultSet FaultPlan::atConnect(std::uint64_t connection)
{
    assert(connection != 0);
    FaultSet now;
    for (std::size_t i = 0; i < m_faults.size(); ++i)
        if (m_faults[i].stage == Stage::connect
            && m_faults[i].at.value_or(connection) == connection)
            strike(i, now);
    return now;
}

FaultSet FaultPlan::atRequest(Stage stage)
{
    assert(stage != Stage::piece);
    FaultSet now = m_lasting;
    const auto request = ++m_requests.at(static_cast<std::size_t>(stage));
    for (std::size_t i = 0; i < m_faults.size(); ++i) {
        const auto first = m_faults[i].at.value_or(1);
        const bool once = faultRow(m_faults[i].kind).span == Span::once;
        if (m_faults[i].stage == stage && (once ? request == first : request >= first))
            strike(i, now);
    }
    return now;
}

FaultSet FaultPlan::atPiece(std::uint64_t bytes)
{
    FaultSet now = m_lasting;
    for (std::size_t i = 0; i < m_faults.size(); ++i)
        if (m_faults[i].stage == Stage::piece && bytes >= m_faults[i].at.value_or(0)
            && !m_struck[i])
            strike(i, now);
    return now;
}

FaultSet FaultPlan::breakAt(std::uint64_t bytes) const
{
    FaultSet now;
    for (const auto& fault : m_faults) {
        const bool breaks = fault.kind == FaultKind::close || fault.kind == FaultKind::reset
            || fault.kind == FaultKind::stall || fault.kind == FaultKind::die
            || fault.kind == FaultKind::haltOut;
        if (breaks && fault.stage == Stage::piece && bytes >= fault.at.value_or(0))
            now.add(fault.kind);
    }
    return now;
}

const std::string& FaultPlan::value(FaultKind kind) const
{
    static const std::string none;
    const auto found = std::find_if(m_faults.begin(), m_faults.end(),
                                    [&](const auto& fault) { return fault.kind == kind; });
    return found == m_faults.end() ? none : found->value;
}

} // namespace vymprinter
