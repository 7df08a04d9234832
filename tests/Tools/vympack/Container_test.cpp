// SPDX-License-Identifier: MIT
#include "Tools/vympack/PackageCheck.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <limits>

using namespace vympack;
using namespace vympack_test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAreArray;

namespace {

class VympackContainer : public testing::Test {
protected:
    Defects check(const std::string& bytes) const
    {
        const auto path = m_folder.write("package", bytes);
        InputFile file;
        std::string reason;
        Defects defects;
        EXPECT_TRUE(file.open(path, reason)) << reason;
        checkContainer(file, path, defects);
        return defects;
    }

    TempFolder m_folder;
};

// The good description and one image, then the test's own table and trailer.
struct Parts {
    std::string data = goodDescription() + "firmware";
    std::uint32_t text = static_cast<std::uint32_t>(goodDescription().size());
    std::uint32_t table = text + 8;

    [[nodiscard]] std::string with(const std::string& entries, std::uint32_t count) const
    {
        return data + entries + trailer(table, count);
    }
    [[nodiscard]] std::string with(const std::string& second) const
    {
        return with(entry("VYMINFO.txt", 0, text) + second, 2);
    }
};

} // namespace

TEST_F(VympackContainer, TheGoodOneHasNoDefect)
{
    EXPECT_THAT(namesOf(check(container(goodFiles()))), IsEmpty());
}

TEST_F(VympackContainer, DataTableAndTrailerMayLieInAnyOrder)
{
    const auto text = goodDescription();
    const auto size = static_cast<std::uint32_t>(text.size());
    const auto bytes = entry("main.bin", 80, 8) + entry("VYMINFO.txt", 88, size) + "firmware" + text
        + trailer(0, 2);
    EXPECT_THAT(namesOf(check(bytes)), IsEmpty());
}

TEST_F(VympackContainer, EachDefectIsNamedAtItsByte)
{
    const Parts parts;
    const auto end = parts.table + 80; // where the trailer begins
    const auto second = parts.table + 40;
    const auto image = [&](const std::string& name) {
        return parts.with(entry(name, parts.text, 8));
    };
    auto dirty = entry("main.bin", parts.text, 8);
    dirty[31] = 'x';
    const struct {
        const char* why;
        std::string bytes;
        std::vector<std::string> found;
        std::uint64_t offset;
    } rows[] = {
        {"shorter than a trailer", std::string(15, 'x'), {"error bad-trailer"}, 0},
        {"empty", "", {"error bad-trailer"}, 0},
        {"no closing NUL in the magic",
         replaced(image("main.bin"), {kMagic.data(), 8}, "VYMBINDX"),
         {"error bad-trailer"},
         end + 8},
        {"a count of 0", parts.with("", 0), {"error bad-count"}, parts.table + 4},
        {"a negative count", parts.with("", 0xFFFFFFFF), {"error bad-count"}, parts.table + 4},
        {"a count that cannot fit", parts.with("", 1000), {"error bad-count"}, parts.table + 4},
        {"a table after the end",
         parts.data + trailer(parts.table, 2),
         {"error table-out-of-bounds"},
         parts.table},
        {"one file only",
         parts.with(entry("VYMINFO.txt", 0, parts.text), 1),
         {"error single-entry", "error image-missing"},
         parts.table},
        {"data after the end",
         parts.with(entry("main.bin", end, 17)),
         {"error entry-out-of-bounds"},
         second + 32},
        {"offset and size that overflow",
         parts.with(entry("main.bin", 0xFFFFFFFF, 0xFFFFFFFF)),
         {"error entry-out-of-bounds"},
         second + 32},
        {"data in the trailer",
         parts.with(entry("main.bin", end, 16)),
         {"error entry-overlap"},
         second},
        {"data in the table",
         parts.with(entry("main.bin", parts.table + 1, 4)),
         {"error entry-overlap"},
         second},
        {"data in another file",
         parts.with(entry("main.bin", 4, 8)),
         {"error entry-overlap"},
         second},
        {"a name without a NUL",
         image(std::string(32, 'n')),
         {"error name-not-terminated", "error image-missing", "warning image-unused"},
         second},
        {"bytes after the name", parts.with(dirty), {"warning name-padding"}, second + 8},
        {"an empty name", image(""), {"error name-empty", "error image-missing"}, second},
        {"the same name twice",
         image("VYMINFO.txt"),
         {"error duplicate-name", "error image-missing"},
         second},
        {"an empty image",
         parts.with(entry("main.bin", parts.text, 0)),
         {"warning empty-image"},
         second},
        {"no description",
         parts.with(entry("vyminfo.txt", 0, 8) + entry("main.bin", parts.text, 8), 2),
         {"error no-description"},
         parts.table},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto defects = check(row.bytes);
        EXPECT_THAT(namesOf(defects), UnorderedElementsAreArray(row.found));
        ASSERT_FALSE(defects.kept().empty());
        EXPECT_EQ(defects.kept().front().place.offset, row.offset);
    }
}

TEST_F(VympackContainer, NamesThatLeaveTheFolderAreUnsafe)
{
    const Parts parts;
    for (const char* name :
         {"../main.bin", "/main.bin", "a\\b", "..", ".", "a/b", "a\x1B[2J", "a\n", "a\x7F"}) {
        EXPECT_THAT(namesOf(check(parts.with(entry(name, parts.text, 8)))),
                    Contains("error name-unsafe"))
            << name;
    }
    for (const char* name : {"...", "a..b", ".main", "a b", "-o", "\xC3\xA4"}) {
        EXPECT_THAT(namesOf(check(parts.with(entry(name, parts.text, 8)))),
                    Not(Contains("error name-unsafe")))
            << name;
    }
}

TEST_F(VympackContainer, ARangeThatCoversSeveralIsNamedWithEach)
{
    const std::string data(60, 'd');
    const auto bytes = data + entry("all", 0, 60) + entry("first", 10, 5) + entry("second", 20, 5)
        + entry("touching", 60, 0) + trailer(60, 4);
    const auto defects = check(bytes);
    std::size_t overlaps = 0;
    for (const auto& defect : defects.kept())
        overlaps += defect.kind.name == "entry-overlap" ? 1 : 0;
    EXPECT_EQ(overlaps, 2U);
}

TEST_F(VympackContainer, MoreEntriesThanAPackageHasAreABadCount)
{
    std::string table;
    for (std::uint32_t i = 0; i <= kMostEntries; ++i)
        table += entry("file" + std::to_string(i), 0, 0);
    const auto defects = check(table + trailer(0, kMostEntries + 1));
    EXPECT_THAT(namesOf(defects), ElementsAre("error bad-count"));
}

TEST_F(VympackContainer, ADescriptionTooLargeIsNotRead)
{
    const std::string large(kMostDescription + 1, ' ');
    const auto defects = check(container({{"VYMINFO.txt", large}, {"main.bin", "x"}}));
    EXPECT_THAT(namesOf(defects), ElementsAre("error description-too-large"));
}

TEST_F(VympackContainer, EveryCutOfItIsAnErrorAndDoesNoHarm)
{
    const auto whole = container(goodFiles());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_GT(check(whole.substr(0, length)).errors(), 0U) << length;
    for (std::size_t from = 1; from < whole.size(); from += 5)
        check(whole.substr(from));
}

TEST_F(VympackContainer, ExtremeFieldsAreAnErrorAndDoNoHarm)
{
    const auto whole = container(goodFiles());
    const auto trailerAt = whole.size() - kTrailerSize;
    const auto entryAt = trailerAt - kEntrySize;
    constexpr auto kMax = std::numeric_limits<std::uint32_t>::max();
    for (const auto field : {trailerAt, trailerAt + 4, entryAt + 32, entryAt + 36}) {
        for (const std::uint32_t value : {0U, 1U, kMax / 2, kMax / 2 + 1, kMax - 1, kMax}) {
            auto bytes = whole;
            bytes.replace(field, 4, little(value));
            const auto defects = check(bytes);
            // Small numbers can be valid for an entry.
            if (value > 1 || field < entryAt + kOffsetInEntry) {
                EXPECT_GT(defects.errors(), 0U) << field << " " << value;
            }
        }
    }
}

TEST_F(VympackContainer, EveryFlippedByteDoesNoHarm)
{
    const auto whole = container(goodFiles());
    for (std::size_t i = 0; i < whole.size(); ++i) {
        auto bytes = whole;
        bytes[i] = static_cast<char>(bytes[i] ^ 0xFF);
        check(bytes);
    }
}
