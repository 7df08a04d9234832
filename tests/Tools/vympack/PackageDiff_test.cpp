// SPDX-License-Identifier: MIT
#include "Tools/vympack/PackageDiff.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

PackageContent contentOf(const std::string& text, const std::string& digest = "aa")
{
    PackageContent content;
    content.description = text;
    content.table.entries.resize(2);
    content.table.entries[0].name = "VYMINFO.txt";
    content.table.entries[1].name = "main.bin";
    content.table.entries[1].size = 8;
    content.digests = {"", digest};
    return content;
}

const char* wordOf(DiffKind kind)
{
    constexpr const char* kWords[] = {"row", "firmware", "image", "decision"};
    return kWords[static_cast<int>(kind)];
}

// "row PORTNO: 48350 > 1", one for each.
std::vector<std::string> diff(const PackageContent& before, const PackageContent& after)
{
    std::vector<std::string> texts;
    for (const auto& each : diffPackages(before, after))
        texts.push_back(std::string(wordOf(each.kind)) + " " + each.what + ": " + each.before
                        + " > " + each.after);
    return texts;
}

std::vector<std::string> changed(const std::string& from, const std::string& to)
{
    return diff(contentOf(goodDescription()), contentOf(replaced(goodDescription(), from, to)));
}

} // namespace

TEST(VympackPackageDiff, CommentsAndTheOrderOfSettingsAreNoDifference)
{
    EXPECT_THAT(changed("PORTNO 48350", "# a comment\r\nPORTNO  48350"), IsEmpty());
    EXPECT_THAT(changed("ENTERTIME 5\r\nEXITTIME 5", "EXITTIME 5\r\nENTERTIME 5"), IsEmpty());
    EXPECT_THAT(changed("PORTNO 48350\r\n", "PORTNO 48350\r\nPORTNO 1\r\n"), IsEmpty());
}

TEST(VympackPackageDiff, RowsThatChangeComeAndGo)
{
    EXPECT_THAT(changed("48350", "1234"), ElementsAre("row PORTNO: 48350 > 1234"));
    EXPECT_THAT(changed("ENTERTIME 5\r\n", ""), ElementsAre("row ENTERTIME: 5 > "));
    EXPECT_THAT(changed("PORT USB", "PORT USB\r\nPRODUCT X"), ElementsAre("row PRODUCT:  > X"));
}

TEST(VympackPackageDiff, ImagesChangeBySizeAndDigest)
{
    EXPECT_THAT(diff(contentOf(goodDescription(), "aa"), contentOf(goodDescription(), "bb")),
                ElementsAre("image main.bin: 8 bytes, SHA-256 aa > 8 bytes, SHA-256 bb"));
}

TEST(VympackPackageDiff, ANewVersionIsAFirmwareThatChanges)
{
    const auto found = changed("AB010203", "AB010204");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].find("firmware MAIN: MAIN=AB010203 "), 0U) << found[0];
}

TEST(VympackPackageDiff, DecisionsThatChangeForPrintersWithTheOldPackageAreSaid)
{
    EXPECT_THAT(
        changed("BOTH", "NO"),
        ElementsAre("row ALLOWVERSIONDOWN: BOTH > NO", "decision MAIN=AB010203: sent > skipped"));
    EXPECT_THAT(changed("COMPATIBLE=AB010100", "COMPATIBLE=AB010300"),
                testing::Contains("decision MAIN=AB010203: sent > refused"));
    EXPECT_THAT(changed("MAIN=", "BOOT="),
                testing::Contains("decision MAIN=AB010203: sent > not in the package"));
    EXPECT_THAT(changed("MAIN=AB010203", "MAIN=AC010203"),
                testing::Contains("decision MAIN=AB010203: sent > skipped"));
}

TEST(VympackPackageDiff, TheOrderOfFirmwareCounts)
{
    const std::string row = "VERSION BOOT=01.00 main.bin BOOT.BIN\r\n";
    const auto version = goodDescription().find("VERSION MAIN");
    auto first = goodDescription();
    first.insert(version, row);
    EXPECT_THAT(diff(contentOf(first), contentOf(goodDescription() + row)),
                ElementsAre("firmware order: BOOT, MAIN > MAIN, BOOT"));
}
