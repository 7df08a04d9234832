// SPDX-License-Identifier: MIT
#include "tests/VYM/RowParser.h"

#include <climits>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace {

// The six outputs of a VERSION row, marked so that an untouched one shows.
struct VersionRow {
    std::string firm = "-", version = "-", file = "-", sub = "-", compatible = "-", header = "-";
    bool operator==(const VersionRow&) const = default;
    friend void PrintTo(const VersionRow& row, std::ostream* out)
    {
        *out << row.firm << '|' << row.version << '|' << row.file << '|' << row.sub << '|'
             << row.compatible << '|' << row.header;
    }
};

bool read(const vymParse& parser, unsigned index, VersionRow& row)
{
    return parser.getVersion(index, row.firm, row.version, row.file, row.sub, row.compatible,
                             row.header);
}

VersionRow versionRow(std::string_view text)
{
    VersionRow row;
    EXPECT_TRUE(read(RowParser({text}), 0, row)) << text;
    return row;
}

} // namespace

TEST(VersionRow, OfADescriptionGivesSixFields)
{
    EXPECT_EQ(versionRow("VERSION MAIN=0110 main.bin COMPATIBLE=0100 HEADER=1 DISPVER=1.10"),
              (VersionRow{"MAIN", "0110", "main.bin", "-", "0100", "1"}));
}

TEST(VersionRow, OfADescriptionDistinguishesItsTokensByFormAndName)
{
    const struct {
        const char* why;
        const char* text;
        VersionRow row;
    } table[] = {
        {"nothing but the key", "VERSION", {"-", "-", "-", "-", "", "-"}},
        {"the file name first keeps the name from counting",
         "VERSION main.bin MAIN=0110",
         {"-", "-", "main.bin", "-", "", "-"}},
        {"a second name is ignored", "VERSION A=1 B=2 f.bin", {"A", "1", "f.bin", "-", "", "-"}},
        {"later bare tokens replace each other",
         "VERSION A=1 f.bin s1 s2",
         {"A", "1", "f.bin", "s2", "", "-"}},
        {"a backslash path", "VERSION A=1 fw\\main.bin", {"A", "1", "main.bin", "-", "", "-"}},
        {"a slash path", "VERSION A=1 /a/b/main.bin", {"A", "1", "main.bin", "-", "", "-"}},
        {"both", "VERSION A=1 a/b\\c.bin", {"A", "1", "c.bin", "-", "", "-"}},
        {"the other both", "VERSION A=1 a\\b/c.bin", {"A", "1", "c.bin", "-", "", "-"}},
        {"a path that ends in a slash", "VERSION A=1 folder/", {"A", "1", "", "-", "", "-"}},
        {"a sub-file keeps its path", "VERSION A=1 f d/s", {"A", "1", "f", "d/s", "", "-"}},
        {"compatible and header may come first",
         "VERSION HEADER=2 COMPATIBLE=3 A=1 f",
         {"-", "-", "f", "-", "3", "2"}},
        {"their case does not matter",
         "VERSION A=1 compatible=3 Header=2",
         {"A", "1", "-", "-", "3", "2"}},
        {"the first equals sign parts", "VERSION A=1=2", {"A", "1=2", "-", "-", "", "-"}},
        {"an empty name", "VERSION =1", {"", "1", "-", "-", "", "-"}},
        {"an empty value", "VERSION A=", {"A", "", "-", "-", "", "-"}},
        {"tabs and blanks", "VERSION\t A=1 \t f", {"A", "1", "f", "-", "", "-"}},
        {"quotes around a version stay",
         "VERSION A=\"1 0\" f",
         {"A", "\"1 0\"", "f", "-", "", "-"}},
        {"and around the other texts",
         "VERSION A=1 \"a b.bin\" \"c d\" COMPATIBLE=\"0 1\" HEADER=\"2\"",
         {"A", "1", "\"a b.bin\"", "\"c d\"", "\"0 1\"", "\"2\""}},
    };
    for (const auto& entry : table)
        EXPECT_EQ(versionRow(entry.text), entry.row) << entry.why;
}

TEST(VersionRow, IsCountedByReadingUntilThereIsNone)
{
    const RowParser parser({"VERSION A=1 a.bin", "OTHER", "VERSION B=2 b.bin"});
    VersionRow row;
    EXPECT_TRUE(read(parser, 0, row));
    EXPECT_TRUE(read(parser, 1, row));
    EXPECT_EQ(row.firm, "B");
    VersionRow untouched;
    EXPECT_FALSE(read(parser, 2, untouched));
    EXPECT_FALSE(read(parser, UINT_MAX, untouched));
    EXPECT_EQ(untouched, VersionRow{});
    EXPECT_EQ(parser.countVersionRows(), 2U);
}

TEST(VersionRow, OfAPrinterGivesNameAndVersion)
{
    const RowParser parser({"VERSION MAIN2=1.20 more", "VERSION bare", "VERSION"}, load_targetinfo);
    VersionRow row;
    EXPECT_TRUE(read(parser, 0, row));
    EXPECT_EQ(row, (VersionRow{"MAIN2", "1.20"}));
    VersionRow untouched;
    for (unsigned index : {1U, 2U, 3U})
        EXPECT_FALSE(read(parser, index, untouched)) << index;
    EXPECT_EQ(untouched, VersionRow{});
}

TEST(VersionRow, OfAVersionTextStopsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const RowParser parser({"VERSION 1"}, load_bindinfo);
    VersionRow row;
    EXPECT_DEATH(read(parser, 0, row),
                 testing::HasSubstr("VYM/vymParse:1076: failed assertion `0'\n"));
}

TEST(DisplayedVersion, IsReadFromADescriptionOnly)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    std::string name, version;
    for (const auto type : {load_targetinfo, load_bindinfo}) {
        const RowParser parser({"VERSION A=1"}, type);
        EXPECT_DEATH(parser.getDispFirmVersion(0, name, version),
                     testing::HasSubstr("VYM/vymParse:840: failed assertion `0'\n"));
    }
}

TEST(DisplayedVersion, IsTheNamedOneBeforeTheInternalOne)
{
    const struct {
        const char* why;
        const char* row;
        bool shown;
        const char* name;
        const char* version;
    } table[] = {
        {"the firmware itself", "VERSION MAIN=0110 main.bin", true, "MAIN", "0110"},
        {"a shown version", "VERSION MAIN=0110 DISPVER=1.10", true, "MAIN", "1.10"},
        {"a shown name in quotes", "VERSION MAIN=0110 DISPFIRM=\"Main board\"", true, "Main board",
         "0110"},
        {"both, in front", "VERSION dispfirm=X DISPVER=9 MAIN=1", true, "X", "9"},
        {"both and nothing else", "VERSION DISPFIRM=X DISPVER=\"9\"", true, "X", "9"},
        {"compatible and header do not show", "VERSION COMPATIBLE=1 HEADER=2", false, "", ""},
        {"the first other token counts, wherever it stands", "VERSION f.bin A=1 B=2", true, "A",
         "1"},
        {"an empty one is filled by the next", "VERSION A= B=2", true, "A", "2"},
        {"an empty shown version changes nothing", "VERSION A=1 DISPVER=", true, "A", "1"},
        {"only a name", "VERSION DISPFIRM=X", false, "X", ""},
        {"only a version", "VERSION DISPVER=1", false, "", "1"},
        {"bare tokens only", "VERSION a b", false, "", ""},
        {"nothing", "VERSION", false, "", ""},
        {"no row", "OTHER", false, "", ""},
    };
    for (const auto& entry : table) {
        std::string name = "before";
        std::string version = "before";
        EXPECT_EQ(RowParser({entry.row}).getDispFirmVersion(0, name, version), entry.shown)
            << entry.why;
        EXPECT_EQ(name, entry.name) << entry.why;
        EXPECT_EQ(version, entry.version) << entry.why;
    }
}

TEST(InstalledVersion, IsReadFromAPrintersRow)
{
    const struct {
        const char* why;
        const char* row;
        bool found;
        const char* name;
        const char* version;
    } table[] = {
        {"the name is cut at its first digit", "VERSION MAIN2=1.20", true, "MAIN", "1.20"},
        {"blanks around the sign", "VERSION MAIN = 1.20", true, "MAIN", "1.20"},
        {"spaces inside are removed, so what follows is joined", "VERSION MAIN=1 20 x", true,
         "MAIN", "120x"},
        {"a tab ends the token", "VERSION MAIN=1.20\tmore", true, "MAIN", "1.20"},
        {"a name of digits stays", "VERSION 22=1", true, "22", "1"},
        {"without a sign both are empty", "VERSION MAIN", true, "", ""},
        {"a second sign belongs to the version", "VERSION A=1=2", true, "A", "1=2"},
        {"no value", "VERSION", false, "before", "before"},
        {"no row", "OTHER 1", false, "before", "before"},
    };
    for (const auto& entry : table) {
        std::string name = "before";
        std::string version = "before";
        EXPECT_EQ(RowParser({entry.row}, load_targetinfo).getTargetInfoVersion(0, name, version),
                  entry.found)
            << entry.why;
        EXPECT_EQ(name, entry.name) << entry.why;
        EXPECT_EQ(version, entry.version) << entry.why;
    }
}

TEST(InstalledVersion, IsKnownOfPrintersOnly)
{
    std::string name = "before", version = "before";
    for (const auto type : {load_vyminfo, load_bindinfo}) {
        const RowParser parser({"VERSION MAIN=1"}, type);
        EXPECT_FALSE(parser.getTargetInfoVersion(0, name, version));
        EXPECT_FALSE(parser.findTargetInfoVersion("MAIN", version));
    }
    EXPECT_EQ(name + version, "beforebefore");
}

TEST(InstalledVersion, IsFoundByNameUntilARowWithoutAValue)
{
    const RowParser parser(
        {"VERSION MAIN2=1.20", "version Sub=2", "VERSION MAIN=9", "VERSION", "VERSION LAST=3"},
        load_targetinfo);
    std::string version = "before";
    EXPECT_TRUE(parser.findTargetInfoVersion("main", version));
    EXPECT_EQ(version, "1.20") << "the first of the name";
    EXPECT_TRUE(parser.findTargetInfoVersion("SUB", version));
    EXPECT_EQ(version, "2");
    EXPECT_FALSE(parser.findTargetInfoVersion("LAST", version));
    EXPECT_FALSE(parser.findTargetInfoVersion("MAIN2", version));
    EXPECT_EQ(version, "2");
}

TEST(PackageVersion, IsTheLastBareTokenOfAVersionText)
{
    std::string version = "before", header = "before";
    const RowParser parser({"VERSION 1.0 OTHER=x 2.0 header=7", "VERSION"}, load_bindinfo);
    EXPECT_TRUE(parser.getVymBindVersion(0, version, header));
    EXPECT_EQ(version, "2.0");
    EXPECT_EQ(header, "7");
    EXPECT_TRUE(parser.getVymBindVersion(1, version, header)) << "the row alone is enough";
    EXPECT_FALSE(parser.getVymBindVersion(2, version, header));
    EXPECT_EQ(version + header, "2.07");
    for (const auto type : {load_vyminfo, load_targetinfo})
        EXPECT_FALSE(RowParser({"VERSION 3"}, type).getVymBindVersion(0, version, header));
}

TEST(PlatformVersions, AreAHexadecimalPairAfterThePlatformsName)
{
    const struct {
        const char* why;
        std::string row;
        bool found;
        long lowest, highest;
    } table[] = {
        {"no highest means no limit", "MACOS=1040", true, 0x1040, -257},
        {"both", "MACOS=1040 1060", true, 0x1040, 0x1060},
        {"the name's case does not matter", "MacOs=0x1040\t0x1060", true, 0x1040, 0x1060},
        {"a negative highest", "MACOS=1040 -0101", true, 0x1040, -257},
        {"no digits", "MACOS=x y", true, 0, 0},
        {"beyond every number", "MACOS=FFFFFFFFFF", true, INT_MAX, -257},
        {"another platform", "WIN=1 2", false, 5, 6},
        {"no name", "=1040", false, 5, 6},
        {"no sign", "MACOS 1040", false, 5, 6},
        {"the pair is not the first token", "x MACOS=1040", false, 5, 6},
        {"a longer name", "MACOSX=1040", false, 5, 6},
        {"nothing", "", false, 5, 6},
    };
    for (const auto& entry : table) {
        long lowest = 5;
        long highest = 6;
        const RowParser parser({"PLATFORMVERSION " + entry.row});
        EXPECT_EQ(parser.getPlatformVersion(4, highest, lowest), entry.found) << entry.why;
        EXPECT_EQ(lowest, entry.lowest) << entry.why;
        EXPECT_EQ(highest, entry.highest) << entry.why;
    }
}

TEST(PlatformVersions, SkipTheRowsOfOtherPlatforms)
{
    const RowParser parser({"PLATFORMVERSION WIN=1 2", "PLATFORMVERSION",
                            "PLATFORMVERSION MACOS=3 4", "PLATFORMVERSION MACOS=5 6"});
    long lowest = 0;
    long highest = 0;
    EXPECT_TRUE(parser.getPlatformVersion(4, highest, lowest));
    EXPECT_EQ(lowest, 3);
    EXPECT_EQ(highest, 4);
}

TEST(PlatformVersions, AreThisPlatformsInADescriptionOnly)
{
    long lowest = 5;
    long highest = 6;
    const RowParser parser({"PLATFORMVERSION MACOS=3 4"});
    for (const int platform : {0, 1, 3, 5, -4, INT_MAX, INT_MIN})
        EXPECT_FALSE(parser.getPlatformVersion(platform, highest, lowest)) << platform;
    for (const auto type : {load_targetinfo, load_bindinfo}) {
        EXPECT_FALSE(
            RowParser({"PLATFORMVERSION MACOS=3 4"}, type).getPlatformVersion(4, highest, lowest));
    }
    EXPECT_EQ(lowest, 5);
    EXPECT_EQ(highest, 6);
}
