// SPDX-License-Identifier: MIT
#include "Tools/vympack/FileNames.h"

#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DefectKinds.h"
#include "Tools/vympack/PrintableText.h"
#include "VYM/DescriptionText.h"

#include <algorithm>
#include <set>

namespace vympack {

namespace {

bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

void checkName(const EmbeddedFile& file, std::set<std::string_view>& seen, Defects& defects)
{
    if (file.name.empty()) {
        defects.add(defect::kNameEmpty, file.place, "the entry has no name: give the file one");
        return;
    }
    if (const auto reason = whyUnsafe(file.name); !reason.empty())
        defects.add(defect::kNameUnsafe, file.place,
                    "the name \"" + file.name + "\" " + std::string(reason) + ": rename the file");
    else if (printable(file.name) != file.name)
        defects.add(defect::kUnprintableText, file.place,
                    "the name \"" + file.name + "\" is no printable UTF-8: rename the file");
    if (!seen.insert(file.name).second)
        defects.add(defect::kDuplicateName, file.place,
                    "\"" + file.name + "\" is in the package twice and only the first is ever read:"
                        + " rename or remove one");
    if (file.size == 0 && file.name != kDescriptionName)
        defects.add(defect::kEmptyImage, file.place,
                    "\"" + file.name + "\" is empty: the printer would be sent no firmware");
}

void checkDescriptionIsThere(const std::vector<EmbeddedFile>& files, const Place& whole,
                             Defects& defects)
{
    std::string hint = "add it";
    for (const auto& file : files) {
        if (file.name == kDescriptionName)
            return;
        if (description::equalNoCase(file.name, kDescriptionName))
            hint = "rename \"" + file.name + "\", case matters";
    }
    defects.add(defect::kNoDescription, whole,
                "there is no \"" + std::string(kDescriptionName) + "\" in the package: " + hint);
}

} // namespace

std::string_view whyUnsafe(std::string_view name)
{
    if (name.empty())
        return "is empty";
    if (name == "." || name == "..")
        return "names a folder";
    if (name.find_first_of("/\\") != std::string_view::npos)
        return "holds a path separator";
    if (std::any_of(name.begin(), name.end(), isControl))
        return "holds a control character";
    return {};
}

void checkFiles(const std::vector<EmbeddedFile>& files, const Place& whole, Defects& defects)
{
    std::set<std::string_view> seen;
    for (const auto& file : files)
        checkName(file, seen, defects);
    if (files.size() == 1)
        defects.add(defect::kSingleEntry, whole,
                    "a package with a single file counts as no package: add a firmware image");
    checkDescriptionIsThere(files, whole, defects);
}

} // namespace vympack
