// SPDX-License-Identifier: MIT
#include "Tools/vympack/PackageCheck.h"

#include "Tools/vympack/Container.h"
#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DefectKinds.h"
#include "Tools/vympack/DescriptionCheck.h"
#include "Tools/vympack/VersionRow.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace vympack {

namespace {

// Reads the description out of its file and checks it.
void readAndCheck(const InputFile& file, std::uint64_t offset, std::uint64_t size,
                  const Place& place, const std::vector<EmbeddedFile>* files, Defects& defects)
{
    std::string text;
    if (size > kMostDescription)
        defects.add(defect::kDescriptionTooLarge, place,
                    "the description has " + std::to_string(size)
                        + " bytes, far more than any: put the right file in");
    else if (!file.readText(offset, static_cast<std::size_t>(size), text))
        defects.add(defect::kEntryOutOfBounds, place, "the description cannot be read to its end");
    else
        checkDescription(text, place, files, defects);
}

bool isDescription(const std::string& name)
{
    return name == kDescriptionName;
}

// A file that is no package is recognised by its name only.
bool isLoneDescription(const InputFile& file, const std::string& path)
{
    constexpr std::string_view kEnding = ".txt";
    const bool isText = path.size() > kEnding.size()
        && description::equalNoCase(path.substr(path.size() - kEnding.size()), kEnding);
    std::string end;
    const bool isPackage = file.size() >= kMagic.size()
        && file.readText(file.size() - kMagic.size(), kMagic.size(), end) && end == kMagic;
    return isText && !isPackage;
}

// The images that the description's rows name and that are in the folder, each once.
std::vector<Input> inputsBeside(const std::string& folder, Input description)
{
    std::vector<Input> inputs;
    std::string text;
    if (description.size() <= kMostDescription)
        static_cast<void>(
            description.file.readText(0, static_cast<std::size_t>(description.size()), text));
    inputs.push_back(std::move(description));
    std::set<std::string> taken;
    description::Rows rows(text);
    std::string_view row;
    while (rows.next(row) && inputs.size() <= kMostEntries) {
        if (!description::belongsTo(row, "VERSION"))
            continue;
        const std::string name(imageName(parseVersionRow(row)));
        Input image{(std::filesystem::path(folder) / name).string(), name, {}, {}};
        std::string reason;
        if (!name.empty() && taken.insert(name).second && image.file.open(image.path, reason))
            inputs.push_back(std::move(image));
    }
    return inputs;
}

} // namespace

void checkContainer(const InputFile& file, const std::string& path, Defects& defects)
{
    const auto table = readTable(file, path, defects);
    if (!table)
        return;
    checkEntries(*table, file, path, defects);
    std::vector<EmbeddedFile> files;
    for (const auto& entry : table->entries)
        files.push_back({entry.name, entry.size, {path, {}, entry.place}});
    checkFiles(files, {path, {}, table->offset}, defects);
    const auto found = std::find_if(table->entries.begin(), table->entries.end(),
                                    [](const Entry& entry) { return isDescription(entry.name); });
    if (found != table->entries.end() && isInside(*found, file))
        readAndCheck(file, found->offset, found->size, {path, found->name, {}}, &files, defects);
}

void checkInputs(const std::vector<Input>& inputs, const std::string& path, Defects& defects)
{
    std::vector<EmbeddedFile> files;
    for (const auto& input : inputs) {
        files.push_back({input.name, input.size(), {input.path, {}, {}}});
        if (input.name.size() >= kNameSize)
            defects.add(defect::kNameTooLong, files.back().place,
                        "the name \"" + input.name + "\" has " + std::to_string(input.name.size())
                            + " bytes, and 31 fit into a package: shorten it");
    }
    const Place whole{path, {}, {}};
    if (inputs.size() > kMostEntries)
        defects.add(defect::kBadCount, whole,
                    "a package holds at most " + std::to_string(kMostEntries) + " files");
    if (containerSize(inputs) > kMostBytes)
        defects.add(defect::kPackageTooLarge, whole,
                    "the package would be larger than 32-bit positions reach: leave something out");
    checkFiles(files, whole, defects);
    const auto found = std::find_if(inputs.begin(), inputs.end(),
                                    [](const Input& input) { return isDescription(input.name); });
    if (found == inputs.end())
        return;
    const Place place{found->path, {}, {}};
    if (found->text)
        checkDescription(*found->text, place, &files, defects);
    else
        readAndCheck(found->file, 0, found->size(), place, &files, defects);
}

void checkLoneDescription(const InputFile& file, const std::string& path, Defects& defects)
{
    readAndCheck(file, 0, file.size(), {path, {}, {}}, nullptr, defects);
}

void checkFile(const InputFile& file, const std::string& path, Defects& defects)
{
    if (isLoneDescription(file, path))
        checkLoneDescription(file, path, defects);
    else
        checkContainer(file, path, defects);
}

bool checkFolder(const std::string& folder, Defects& defects, std::string& reason)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const auto inFolder = [&](std::string_view name) { return folder + "/" + std::string(name); };
    Input text{inFolder(kDescriptionName), std::string(kDescriptionName), {}, {}};
    const auto package = inFolder(kPackageName);
    const bool hasText = fs::exists(text.path, error);
    const bool hasPackage = fs::exists(package, error);
    if (!hasText && !hasPackage)
        reason = "the folder holds neither VYMINFO.txt nor VYMBINDDATA";
    if (!reason.empty() || (hasText && !text.file.open(text.path, reason)))
        return false;
    if (hasText)
        checkInputs(inputsBeside(folder, std::move(text)), folder, defects);
    InputFile file;
    if (hasPackage && !file.open(package, reason))
        return false;
    if (hasPackage)
        checkContainer(file, package, defects);
    return true;
}

} // namespace vympack
