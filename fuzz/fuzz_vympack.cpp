// SPDX-License-Identifier: MIT
// Any bytes given to the package maker: checked as a container, checked as a description, unpacked.
// The engine opens every container that passes the check, and unpacking stays in its folder.
#include "Tools/vympack/DescriptionCheck.h"
#include "Tools/vympack/Extraction.h"
#include "Tools/vympack/PackageCheck.h"
#include "Tools/vympack/Report.h"
#include "fuzz/MemoryContainer.h"

#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostUnpacked = 8; // keeps each input fast

void report(const vympack::Defects& defects)
{
    std::ostringstream out;
    vympack::writeDefects(out, "a package", defects);
    vympack::writeDefectsJson(out, "a package", defects, vympack::kExitDone);
    require(defects.kept().size() <= defects.errors() + defects.warnings(), "all are counted");
    for (const char c : out.str())
        require(c == '\n' || static_cast<unsigned char>(c) >= ' ', "fit for a terminal");
}

void checkText(std::string_view text)
{
    vympack::Defects defects;
    const std::vector<vympack::EmbeddedFile> files{{"VYMINFO.txt", text.size(), {}},
                                                   {"main.bin", 1, {}}};
    vympack::checkDescription(text, {"VYMINFO.txt", {}, {}}, &files, defects);
    report(defects);
}

void checkOpens(const vymBindInfo& container, const vympack::Table& table)
{
    require(container.IsBindVymFile(), "what has no defect opens");
    for (const auto& entry : table.entries) {
        unsigned long size = 0;
        require(container.getBindFileSize(entry.name.c_str(), size) && size == entry.size
                    && container.holdsEveryByte(entry.name.c_str()),
                "what has no defect can be read");
    }
}

std::set<std::string> namesIn(const fs::path& folder)
{
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        require(entry.is_regular_file() && !entry.is_symlink(), "files, and nothing else");
        names.insert(entry.path().filename());
    }
    return names;
}

// The parent has only one other file, so that a file written outside the folder is noticed.
void unpack(const vympack::InputFile& file, const vympack::Table& table)
{
    const TempFolder parent;
    parent.write("neighbour", "");
    const auto folder = parent.path() / "out";
    fs::create_directory(folder);
    const auto result = vympack::extract(file, table, {folder.string(), {}, true});
    require(result.written.size() + result.refusals.size() == table.entries.size(),
            "each file is written or refused");
    require(namesIn(folder) == std::set(result.written.begin(), result.written.end()),
            "what was written, and nothing else");
    fs::remove_all(folder);
    require(namesIn(parent.path()) == std::set<std::string>{"neighbour"}, "nothing outside");
    require(fs::file_size(parent.path() / "neighbour") == 0, "the neighbour is untouched");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryContainer memory;
    const auto bytes = asText(data, size);
    checkText(bytes);
    const auto& container = memory.open(bytes);
    std::string reason;
    vympack::InputFile file;
    require(file.open(memory.file().path(), reason), "the container is read");
    vympack::Defects defects;
    vympack::checkContainer(file, "a package", defects);
    report(defects);

    vympack::Defects ignored;
    const auto table = vympack::readTable(file, "a package", ignored);
    require(table || defects.errors() > 0, "a missing table is a defect");
    if (table && defects.errors() == 0)
        checkOpens(container, *table);
    if (table && table->entries.size() <= kMostUnpacked)
        unpack(file, *table);
    return 0;
}
