// SPDX-License-Identifier: MIT
#include "Tools/vympack/VersionRowCheck.h"

#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DefectKinds.h"
#include "Tools/vympack/VersionForm.h"
#include "Tools/vympack/VersionRow.h"
#include "VYM/AsciiCase.h"
#include "VYM/DescriptionText.h"
#include "VYM/ModelDependCheckVer.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace vympack {

namespace {

constexpr std::size_t kMostSubFileName = 31; // the packets' 32-byte field includes a NUL

class Images {
public:
    explicit Images(const std::vector<EmbeddedFile>& files)
    {
        for (const auto& file : files) {
            m_exact.insert(file.name);
            m_anyCase.emplace(ascii::upperCase(file.name), file.name);
        }
    }
    [[nodiscard]] bool has(std::string_view name) const { return m_exact.contains(name); }
    // The name of a file in the package that differs from the image's only in case, or empty.
    [[nodiscard]] std::string_view inOtherCase(std::string_view name) const
    {
        const auto found = m_anyCase.find(ascii::upperCase(name));
        return found == m_anyCase.end() ? std::string_view() : found->second;
    }

private:
    std::set<std::string_view> m_exact;
    std::map<std::string, std::string_view> m_anyCase;
};

std::string withoutQuotes(std::string_view text)
{
    std::string out(text);
    std::erase(out, '"');
    return out;
}

// Quotes around names and versions are compared and sent as part of them.
void checkQuotes(const KeyedRow& row, std::string_view text, const RowReport& report)
{
    if (text.find('"') != std::string_view::npos)
        report.at(row, text, defect::kQuotedToken,
                  "the quotes in " + std::string(text) + " count as part of it: remove them",
                  withSpot(row.text, text, withoutQuotes(text)));
}

void checkForm(const KeyedRow& row, std::string_view text, const RowReport& report)
{
    const auto form = versionForm(text);
    if (!form)
        report.at(row, text, defect::kUnknownVersionForm,
                  inQuotes(text)
                      + " cannot be compared with a printer's version: write four characters and"
                        " digits (AB010203), NN.NN, or one of the other forms",
                  withSpot(row.text, text, "AB010203"));
    else if (form->compared < text.size())
        report.at(row, text, defect::kVersionTail,
                  "nothing after " + inQuotes(text.substr(0, form->compared))
                      + " is compared: shorten the version",
                  withSpot(row.text, text, text.substr(0, form->compared)));
    else if (!form->numbered)
        report.at(row, text, defect::kVersionWithoutNumber,
                  inQuotes(text)
                      + " has no digits after its four leading characters: no version of it is"
                        " newer than another; add digits",
                  withSpot(row.text, text, std::string(text) + "0100"));
}

std::string_view compatibleToken(const KeyedRow& row, const VersionRow& version)
{
    const auto place = placeIn(row.text, version.compatible).value_or(0);
    const auto begin = row.text.find_last_of(" \t", place) + 1;
    return row.text.substr(begin, place - begin + version.compatible.size());
}

void checkCompatible(const KeyedRow& row, const VersionRow& version, const RowReport& report)
{
    if (version.compatible.empty())
        return;
    checkForm(row, version.compatible, report);
    const auto form = version.first.value ? versionForm(*version.first.value) : std::nullopt;
    if (form && form->pointed)
        report.at(row, version.compatible, defect::kCompatibleIgnored,
                  "COMPATIBLE is not compared for versions written with a point: write the"
                  " version without one, or do not rely on it",
                  withoutSpot(row.text, compatibleToken(row, version)));
}

// The version with every digit from a place on replaced by 0: the oldest of its form and series.
std::string oldestOf(std::string_view version, std::size_t from)
{
    std::string oldest(version);
    for (auto i = std::min(from, oldest.size()); i < oldest.size(); ++i)
        oldest[i] = oldest[i] == '.' ? '.' : '0';
    return oldest;
}

// Whether the rule sends the version to any printer: to the oldest, to one with the same version,
// or to the oldest that COMPATIBLE allows. Versions in between get the decision of one of these.
bool isEverSent(std::string_view update, std::string_view compatible, yesno_type rule)
{
    if (rule == yesno_yes && compatible.empty())
        return true; // without a comparison
    const auto series = update.substr(0, std::min<std::size_t>(4, update.size()));
    const auto point = update.find('.');
    const std::string lowest = compatible.size() > series.size() && point == update.npos
        ? std::string(series).append(compatible.substr(series.size()))
        : std::string(update);
    for (const auto& installed : {oldestOf(update, point == 2 || point == 8 ? 0 : series.size()),
                                  std::string(update), lowest}) {
        if (decideVersion(update, compatible, installed, rule).send)
            return true;
    }
    return false;
}

void checkEverSent(const KeyedRow& row, const VersionRow& version, yesno_type rule,
                   const RowReport& report)
{
    const auto update = *version.first.value;
    const auto form = versionForm(update);
    const bool isReadable =
        form && form->numbered && (version.compatible.empty() || versionForm(version.compatible));
    if (!isReadable || rule == yesno_none || isEverSent(update, version.compatible, rule))
        return;
    report.at(row, version.compatible.empty() ? update : version.compatible, defect::kNeverSent,
              "no printer can take " + inQuotes(update)
                  + (version.compatible.empty()
                         ? " under this ALLOWVERSIONDOWN: raise the version"
                         : " with this COMPATIBLE: one that is new enough for it needs no update;"
                           " lower or remove it"),
              version.compatible.empty() ? std::string()
                                         : withoutSpot(row.text, compatibleToken(row, version)));
}

void checkFirmware(const KeyedRow& row, const VersionRow& version, yesno_type rule,
                   const RowReport& report)
{
    const auto& first = version.first;
    if (first.name.empty()) {
        report.at(row, first.name, defect::kNoFirmwareName,
                  "the firmware has no name: write name=version after VERSION",
                  withSpot(row.text, first.name, "MAIN"));
    } else if (description::beforeDigits(first.name) != first.name) {
        const auto shorter = description::beforeDigits(first.name);
        report.at(row, first.name, defect::kFirmwareNameDigit,
                  "a printer's firmware names are read up to their first digit, so "
                      + inQuotes(first.name) + " is never found: write " + inQuotes(shorter),
                  shorter.empty() ? std::string() : withSpot(row.text, first.name, shorter));
    }
    checkQuotes(row, first.name, report);
    checkForm(row, *first.value, report);
    checkEverSent(row, version, rule, report);
}

void checkOthers(const KeyedRow& row, const VersionRow& version, const RowReport& report)
{
    for (const auto token : version.others) {
        const auto name = description::splitNamed(token).name;
        const auto near = nearestTokenName(name);
        report.at(row, token, defect::kUnknownToken,
                  inQuotes(name) + " is read by no program: "
                      + (near.empty() ? "remove it" : "did you mean " + std::string(near) + "?"),
                  near.empty() ? withoutSpot(row.text, token) : withSpot(row.text, name, near));
    }
}

void checkFirst(const KeyedRow& row, const VersionRow& version, yesno_type rule,
                const RowReport& report)
{
    if (namesFirmware(version)) {
        checkFirmware(row, version, rule, report);
        checkOthers(row, version, report);
    } else if (!version.others.empty()) {
        const auto token = version.others.front();
        report.at(row, token, defect::kVersionNameNotFirst,
                  inQuotes(token)
                      + " is read as name and version only when it stands first: put it right"
                        " after VERSION",
                  "VERSION " + std::string(token)
                      + withoutSpot(row.text, token).substr(row.rule->key.size()));
    } else {
        report.at(row, row.text, defect::kNoFirmwareName,
                  "the row names no firmware: write name=version right after VERSION",
                  "VERSION MAIN=AB010203" + std::string(row.text.substr(row.rule->key.size())));
    }
}

void checkSubFile(const KeyedRow& row, const VersionRow& version, const RowReport& report)
{
    if (version.subFiles.empty()) {
        const auto image = imageName(version);
        report.at(row, row.text, defect::kNoSubFileName,
                  "the row has no sub-file name, so the printer gets an empty firmware name:"
                  " write it after the image",
                  image.empty()
                      ? std::string()
                      : withSpot(row.text, version.image,
                                 std::string(version.image) + " " + ascii::upperCase(image)));
        return;
    }
    const auto last = version.subFiles.back();
    if (version.subFiles.size() > 1)
        report.at(row, version.subFiles.front(), defect::kUnreadText,
                  "of several sub-file names only the last is read, " + inQuotes(last)
                      + ": remove the others",
                  withoutSpot(row.text, version.subFiles.front()));
    if (last.size() > kMostSubFileName)
        report.at(row, last, defect::kSubFileNameTooLong,
                  inQuotes(last) + " has " + std::to_string(last.size())
                      + " characters, and one of more than 31 is not sent at all: shorten it",
                  withSpot(row.text, last, last.substr(0, kMostSubFileName)));
    checkQuotes(row, last, report);
}

void checkImage(const KeyedRow& row, const VersionRow& version, const Images* images,
                const RowReport& report)
{
    const auto name = imageName(version);
    if (name.empty()) {
        report.at(row, version.image, defect::kNoImageName,
                  "the row names no firmware image: write its file name after the version",
                  std::string(row.text) + " main.bin MAIN.BIN");
    } else if (images != nullptr && !images->has(name)) {
        const auto other = images->inOtherCase(name);
        report.at(row, version.image, defect::kImageMissing,
                  inQuotes(name) + " is not in the package: "
                      + (other.empty() ? "add it or correct the name"
                                       : "did you mean " + inQuotes(other) + "?"),
                  other.empty() ? std::string() : withSpot(row.text, version.image, other));
    }
    checkQuotes(row, version.image, report);
}

// The case of firmware names is ignored.
void checkTwice(const KeyedRow& row, const VersionRow& version,
                std::map<std::string, std::size_t>& seen, const RowReport& report)
{
    if (!namesFirmware(version) || version.first.name.empty())
        return;
    const auto [earlier, isNew] = seen.emplace(ascii::upperCase(version.first.name), row.number);
    if (!isNew)
        report.at(row, version.first.name, defect::kDuplicateFirmware,
                  inQuotes(version.first.name) + " has a row already, row "
                      + std::to_string(earlier->second) + ": remove one",
                  "# " + std::string(row.text));
}

void checkUnused(const std::vector<EmbeddedFile>& files, const std::set<std::string_view>& used,
                 Defects& defects)
{
    for (const auto& file : files) {
        if (file.name != kDescriptionName && !file.name.empty() && !used.contains(file.name))
            defects.add(defect::kImageUnused, file.place,
                        inQuotes(file.name)
                            + " is named by no VERSION row: name it in one or leave it out");
    }
}

} // namespace

void checkVersionRows(std::span<const KeyedRow> rows, const std::vector<EmbeddedFile>* files,
                      yesno_type rule, const RowReport& report, Defects& defects)
{
    if (rows.size() > kMostVersions)
        report.at(rows[kMostVersions], rows[kMostVersions].text, defect::kTooManyVersions,
                  "there are " + std::to_string(rows.size()) + " VERSION rows, of which "
                      + std::to_string(kMostVersions) + " are read: make two packages");
    const auto images = files != nullptr ? std::optional<Images>(*files) : std::nullopt;
    std::set<std::string_view> used;
    std::map<std::string, std::size_t> seen;
    for (const auto& row : rows) {
        const auto version = parseVersionRow(row.text);
        checkFirst(row, version, rule, report);
        checkTwice(row, version, seen, report);
        checkCompatible(row, version, report);
        checkImage(row, version, images ? &*images : nullptr, report);
        used.insert(imageName(version));
        checkSubFile(row, version, report);
    }
    if (files != nullptr)
        checkUnused(*files, used, defects);
}

} // namespace vympack
