#include "Tools/vympack/VersionRowCheck.h"

#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DefectKinds.h"
#include "Tools/vympack/VersionForm.h"
#include "VYM/DescriptionText.h"

#include <map>
#include <set>
#include <string>

namespace vympack {

namespace {

constexpr std::size_t kMostSubFileName = 31; // of the packets' 32-byte field, one is the NUL
constexpr std::string_view kTokenNames[] = {"COMPATIBLE", "HEADER", "DISPVER", "DISPFIRM"};

// What a VERSION row says, each part a view into the row.
struct VersionRow {
    description::NamedToken first; // the first token
    std::string_view compatible;
    std::string_view image;
    std::vector<std::string_view> subFiles; // the last one counts
    std::vector<std::string_view> others; // name=value tokens of no known name, but the first
};

bool isOneOf(std::string_view name, std::span<const std::string_view> names)
{
    for (const auto candidate : names) {
        if (description::equalNoCase(name, candidate))
            return true;
    }
    return false;
}

bool isTokenName(std::string_view name)
{
    return isOneOf(name, kTokenNames);
}

void takeToken(std::string_view token, bool first, VersionRow& version)
{
    const auto named = description::splitNamed(token);
    if (first)
        version.first = named;
    if (!named.value && version.image.empty())
        version.image = token;
    else if (!named.value)
        version.subFiles.push_back(token);
    else if (description::equalNoCase(named.name, "COMPATIBLE"))
        version.compatible = *named.value;
    else if (!first && !isTokenName(named.name))
        version.others.push_back(token);
}

VersionRow parse(const KeyedRow& row)
{
    VersionRow version;
    description::Tokens tokens(description::afterToken(row.text));
    std::string_view token;
    for (bool first = true; tokens.next(token); first = false)
        takeToken(token, first, version);
    return version;
}

std::string upperCase(std::string_view text)
{
    std::string upper(text);
    for (auto& c : upper)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper;
}

class Images {
public:
    explicit Images(const std::vector<EmbeddedFile>& files)
    {
        for (const auto& file : files) {
            m_exact.insert(file.name);
            m_anyCase.emplace(upperCase(file.name), file.name);
        }
    }
    [[nodiscard]] bool has(std::string_view name) const { return m_exact.contains(name); }
    [[nodiscard]] std::string hint(std::string_view name) const
    {
        const auto found = m_anyCase.find(upperCase(name));
        return found == m_anyCase.end() ? "add it or correct the name"
                                        : "did you mean " + quoted(found->second) + "?";
    }

private:
    std::set<std::string_view> m_exact;
    std::map<std::string, std::string_view> m_anyCase;
};

// Names and versions are compared and sent with the quotes they are written in.
void checkQuotes(const KeyedRow& row, std::string_view text, const RowReport& report)
{
    if (text.find('"') != std::string_view::npos)
        report.at(row, text, defect::kQuotedToken,
                  "the quotes in " + std::string(text) + " count as part of it: remove them");
}

void checkForm(const KeyedRow& row, std::string_view text, const RowReport& report)
{
    const auto form = versionForm(text);
    if (!form)
        report.at(row, text, defect::kUnknownVersionForm,
                  quoted(text)
                      + " cannot be compared with a printer's version: write four characters and"
                        " digits (AB010203), NN.NN, or one of the other forms");
    else if (form->compared < text.size())
        report.at(row, text, defect::kVersionTail,
                  "nothing behind " + quoted(text.substr(0, form->compared))
                      + " is compared: shorten the version");
    else if (!form->numbered)
        report.at(row, text, defect::kVersionWithoutNumber,
                  quoted(text)
                      + " has no digits behind its four leading characters: no version of it is"
                        " newer than another; add digits");
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
                  " version without one, or do not rely on it");
}

void checkFirmware(const KeyedRow& row, const description::NamedToken& first,
                   const RowReport& report)
{
    if (first.name.empty()) {
        report.at(row, first.name, defect::kNoFirmwareName,
                  "the firmware has no name: write name=version behind VERSION");
    } else if (description::beforeDigits(first.name) != first.name) {
        report.at(row, first.name, defect::kFirmwareNameDigit,
                  "a printer's firmware names are read up to their first digit, so "
                      + quoted(first.name) + " is never found: write "
                      + quoted(description::beforeDigits(first.name)));
    }
    checkQuotes(row, first.name, report);
    checkForm(row, *first.value, report);
}

void checkFirst(const KeyedRow& row, const VersionRow& version, const RowReport& report)
{
    const auto& first = version.first;
    const bool firmware = first.value && !isTokenName(first.name);
    if (firmware) {
        checkFirmware(row, first, report);
        for (const auto token : version.others) {
            const auto name = description::splitNamed(token).name;
            const auto near = nearest(name, kTokenNames);
            report.at(
                row, token, defect::kUnknownToken,
                quoted(name) + " is read by nobody: "
                    + (near.empty() ? "remove it" : "did you mean " + std::string(near) + "?"));
        }
    } else if (!version.others.empty()) {
        report.at(row, version.others.front(), defect::kVersionNameNotFirst,
                  quoted(version.others.front())
                      + " is read as name and version only when it stands first: put it right"
                        " behind VERSION");
    } else {
        report.at(row, row.text, defect::kNoFirmwareName,
                  "the row names no firmware: write name=version right behind VERSION");
    }
}

void checkSubFile(const KeyedRow& row, const VersionRow& version, const RowReport& report)
{
    if (version.subFiles.empty()) {
        report.at(row, row.text, defect::kNoSubFileName,
                  "the row has no sub-file name, so the printer is told an empty firmware name:"
                  " write it behind the image");
        return;
    }
    const auto last = version.subFiles.back();
    if (version.subFiles.size() > 1)
        report.at(row, version.subFiles.front(), defect::kUnreadText,
                  "of several sub-file names only the last is read, " + quoted(last)
                      + ": remove the others");
    if (last.size() > kMostSubFileName)
        report.at(row, last, defect::kSubFileNameTooLong,
                  quoted(last) + " has " + std::to_string(last.size())
                      + " characters, and one of more than 31 is not sent at all: shorten it");
    checkQuotes(row, last, report);
}

// The image's name is what stands behind the last path separator; returns it.
std::string_view checkImage(const KeyedRow& row, const VersionRow& version, const Images& images,
                            const RowReport& report)
{
    const auto separator = version.image.find_last_of("/\\");
    const auto name =
        separator == std::string_view::npos ? version.image : version.image.substr(separator + 1);
    if (name.empty())
        report.at(row, version.image, defect::kNoImageName,
                  "the row names no firmware image: write its file name behind the version");
    else if (!images.has(name))
        report.at(row, version.image, defect::kImageMissing,
                  quoted(name) + " is not in the package: " + images.hint(name));
    checkQuotes(row, version.image, report);
    return name;
}

} // namespace

void checkVersionRows(std::span<const KeyedRow> rows, const std::vector<EmbeddedFile>& files,
                      const RowReport& report, Defects& defects)
{
    const Images images(files);
    std::set<std::string_view> used;
    for (const auto& row : rows) {
        const auto version = parse(row);
        checkFirst(row, version, report);
        checkCompatible(row, version, report);
        used.insert(checkImage(row, version, images, report));
        checkSubFile(row, version, report);
    }
    for (const auto& file : files) {
        if (file.name != kDescriptionName && !file.name.empty() && !used.contains(file.name))
            defects.add(defect::kImageUnused, file.place,
                        quoted(file.name)
                            + " is named by no VERSION row: name it in one or leave it out");
    }
}

} // namespace vympack
