// SPDX-License-Identifier: MIT
#include "Tools/vympack/PackageDiff.h"

#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DescriptionKeys.h"
#include "Tools/vympack/VersionRow.h"
#include "UI/Text/TextList.h"
#include "VYM/AsciiCase.h"
#include "VYM/ModelDependCheckVer.h"
#include "VYM/vymParse.h"

#include <algorithm>
#include <cassert>
#include <map>
#include <optional>

namespace vympack {

namespace {

// Texts by name, in the order of the names' first appearance.
class Named {
public:
    void add(const std::string& name, const std::string& text)
    {
        const auto [place, isNew] = m_texts.emplace(name, text);
        if (isNew)
            m_order.push_back(name);
    }
    [[nodiscard]] const std::vector<std::string>& names() const { return m_order; }
    [[nodiscard]] std::string text(const std::string& name) const
    {
        const auto found = m_texts.find(name);
        return found == m_texts.end() ? std::string() : found->second;
    }
    [[nodiscard]] bool has(const std::string& name) const { return m_texts.contains(name); }

private:
    std::vector<std::string> m_order;
    std::map<std::string, std::string> m_texts;
};

void compareNamed(DiffKind kind, const Named& before, const Named& after,
                  std::vector<Difference>& found)
{
    for (const auto& name : before.names()) {
        if (!after.has(name) || before.text(name) != after.text(name))
            found.push_back({kind, name, before.text(name), after.text(name)});
    }
    for (const auto& name : after.names()) {
        if (!before.has(name))
            found.push_back({kind, name, {}, after.text(name)});
    }
}

// The rows of a description that the programs read, except firmware: the first row of each key, and
// every row of PLATFORMVERSION.
Named settingsOf(std::string_view text)
{
    Named settings;
    std::size_t platforms = 0;
    description::Rows rows(text);
    std::string_view row;
    while (rows.next(row)) {
        const auto* rule = ruleOfRow(row);
        if (rule == nullptr || rule->type == ValueType::version)
            continue;
        auto name = std::string(rule->key);
        if (rule->type == ValueType::platform && ++platforms > 1)
            name += " " + std::to_string(platforms);
        settings.add(name, std::string(description::afterToken(row)));
    }
    return settings;
}

// Firmware by name; a row without a name by its number.
Named firmwareOf(std::string_view text)
{
    Named firmware;
    std::size_t number = 0;
    description::Rows rows(text);
    std::string_view row;
    while (rows.next(row)) {
        const auto* rule = ruleOfRow(row);
        if (rule == nullptr || rule->type != ValueType::version)
            continue;
        ++number;
        const auto version = parseVersionRow(row);
        const auto name = namesFirmware(version) && !version.first.name.empty()
            ? ascii::upperCase(version.first.name)
            : "row " + std::to_string(number);
        firmware.add(firmware.has(name) ? name + " (row " + std::to_string(number) + ")" : name,
                     std::string(description::afterToken(row)));
    }
    return firmware;
}

Named imagesOf(const PackageContent& content)
{
    assert(content.digests.size() == content.table.entries.size());
    Named images;
    for (std::size_t i = 0; i < content.table.entries.size(); ++i) {
        const auto& entry = content.table.entries[i];
        if (entry.name != kDescriptionName)
            images.add(entry.name,
                       std::to_string(entry.size) + " bytes, SHA-256 "
                           + (content.digests[i].empty() ? "unreadable" : content.digests[i]));
    }
    return images;
}

yesno_type ruleOfText(const std::string& text)
{
    vymParse parsed;
    yesno_type rule = yesno_none;
    if (parsed.loadData(text.data(), text.size(), load_vyminfo))
        parsed.getAllowVersionDown(rule);
    return rule;
}

const char* decisionText(const VersionDecision& decision)
{
    if (decision.send)
        return "sent";
    return decision.code == result::kSuccess || decision.code == result::kNotApplicable ? "skipped"
                                                                                        : "refused";
}

// The effect of an update with a row on a printer with the installed version.
std::string decisionFor(const std::string& rowValue, std::string_view installed, yesno_type rule)
{
    const auto row = "VERSION " + rowValue;
    const auto version = parseVersionRow(row);
    if (!namesFirmware(version))
        return "skipped";
    if (version.compatible.empty() && rule == yesno_yes)
        return "sent"; // without a comparison
    return decisionText(decideVersion(*version.first.value, version.compatible, installed, rule));
}

// For printers with the old package's firmware.
void compareDecisions(const PackageContent& before, const PackageContent& after,
                      std::vector<Difference>& found)
{
    const auto olds = firmwareOf(before.description);
    const auto news = firmwareOf(after.description);
    const auto oldRule = ruleOfText(before.description);
    const auto newRule = ruleOfText(after.description);
    for (const auto& name : olds.names()) {
        const auto row = "VERSION " + olds.text(name);
        const auto version = parseVersionRow(row);
        if (!namesFirmware(version))
            continue;
        const auto installed = *version.first.value;
        const auto was = decisionFor(olds.text(name), installed, oldRule);
        const auto is = news.has(name) ? decisionFor(news.text(name), installed, newRule)
                                       : std::string("not in the package");
        if (was != is)
            found.push_back({DiffKind::decision, name + "=" + std::string(installed), was, is});
    }
}

} // namespace

std::vector<Difference> diffPackages(const PackageContent& before, const PackageContent& after)
{
    std::vector<Difference> found;
    compareNamed(DiffKind::row, settingsOf(before.description), settingsOf(after.description),
                 found);
    const auto olds = firmwareOf(before.description);
    const auto news = firmwareOf(after.description);
    compareNamed(DiffKind::firmware, olds, news, found);
    auto oldOrder = olds.names();
    auto newOrder = news.names();
    if (oldOrder != newOrder
        && std::is_permutation(oldOrder.begin(), oldOrder.end(), newOrder.begin(),
                               newOrder.end())) {
        found.push_back({DiffKind::firmware, "order", joined(oldOrder), joined(newOrder)});
    }
    compareNamed(DiffKind::image, imagesOf(before), imagesOf(after), found);
    compareDecisions(before, after, found);
    return found;
}

} // namespace vympack
