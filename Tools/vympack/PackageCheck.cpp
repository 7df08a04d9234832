#include "Tools/vympack/PackageCheck.h"

#include "Tools/vympack/Container.h"
#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DefectKinds.h"
#include "Tools/vympack/DescriptionCheck.h"

#include <algorithm>

namespace vympack {

namespace {

// Reads the description out of its file and checks it.
void readAndCheck(const InputFile& file, std::uint64_t offset, std::uint64_t size,
                  const Place& place, const std::vector<EmbeddedFile>& files, Defects& defects)
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
        readAndCheck(file, found->offset, found->size, {path, found->name, {}}, files, defects);
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
        checkDescription(*found->text, place, files, defects);
    else
        readAndCheck(found->file, 0, found->size(), place, files, defects);
}

} // namespace vympack
