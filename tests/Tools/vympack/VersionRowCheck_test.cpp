// SPDX-License-Identifier: MIT
#include "Tools/vympack/VersionRowCheck.h"
#include "tests/Tools/vympack/description_rows.h"

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(VympackVersionRowCheck, FirmwareNamesAndVersionsAreChecked)
{
    expectRows({
        {"the image before name and version",
         "MAIN=AB010203 main.bin",
         "main.bin MAIN=AB010203",
         {"error version-name-not-first"},
         11,
         18},
        {"no name and version", "MAIN=AB010203 ", "", {"error no-firmware-name"}, 11, 1},
        {"an empty name", "MAIN=", "=", {"error no-firmware-name"}, 11, 9},
        {"a digit in the name", "MAIN=", "MAIN2=", {"warning firmware-name-digit"}, 11, 9},
        {"a form that is none", "AB010203", "1.0", {"error unknown-version-form"}, 11, 14},
        {"a letter after the leading four",
         "AB010203",
         "AB01O203",
         {"error unknown-version-form"},
         11,
         14},
        {"a compatible version that is none",
         "AB010100",
         "A",
         {"error unknown-version-form"},
         11,
         52},
        {"a compatible version for one with a point",
         "AB010203",
         "01.10",
         {"warning compatible-ignored"},
         11,
         49},
        {"a version without digits to compare",
         "AB010203",
         "0110",
         {"warning version-without-number"},
         11,
         14},
        {"more than is compared",
         "AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100",
         "01.10.20 main.bin MAIN.BIN",
         {"warning version-tail"},
         11,
         14},
        {"a misspelt token", "COMPATIBLE", "COMPATIBEL", {"warning unknown-token"}, 11, 41},
        {"a quoted version",
         "MAIN=AB010203",
         "\"MAIN=AB010203\"",
         {"warning quoted-token", "error unknown-version-form"},
         11,
         9},
    });
}

TEST(VympackVersionRowCheck, ImagesAndSubFileNamesAreChecked)
{
    const std::string most(31, 'n');
    expectRows({
        {"an image that is not there",
         "main.bin",
         "mian.bin",
         {"error image-missing", "warning image-unused"},
         11,
         23},
        {"an image in other case",
         "main.bin",
         "MAIN.bin",
         {"error image-missing", "warning image-unused"},
         11,
         23},
        {"an image with its folder", "main.bin", "C:\\images/main.bin", {}, 0, 0},
        {"a quoted image",
         "main.bin",
         "\"main.bin\"",
         {"error image-missing", "warning quoted-token", "warning image-unused"},
         11,
         23},
        {"no image",
         " main.bin MAIN.BIN",
         "",
         {"error no-image-name", "warning image-unused", "warning no-sub-file-name"},
         11,
         1},
        {"no sub-file name", " MAIN.BIN", "", {"warning no-sub-file-name"}, 11, 1},
        {"the longest sub-file name", "MAIN.BIN", most, {}, 0, 0},
        {"a sub-file name too long",
         "MAIN.BIN",
         most + "n",
         {"error sub-file-name-too-long"},
         11,
         32},
        {"two sub-file names", "MAIN.BIN", "MAIN.BIN OTHER.BIN", {"warning unread-text"}, 11, 32},
    });
}

TEST(VympackVersionRowCheck, AnImageThatNoRowNamesIsUnused)
{
    auto files = kFiles;
    files.push_back({"boot.bin", 8, {"package", {}, 1234}});
    const auto defects = check(goodDescription(), files);
    EXPECT_THAT(namesOf(defects), ElementsAre("warning image-unused"));
    EXPECT_EQ(defects.kept()[0].place.offset, 1234U);
}

TEST(VympackVersionRowCheck, RowsThatNoPrinterCanEverTakeAreNamed)
{
    const auto never = [](const std::string& rule, const std::string& version) {
        const auto text = replaced(replaced(goodDescription(), "BOTH", rule),
                                   "AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100",
                                   version.substr(0, version.find(' ')) + " main.bin MAIN.BIN"
                                       + version.substr(version.find(' ')));
        return namesOf(check(text)).contains("warning never-sent");
    };
    const struct {
        const char* why;
        std::string rule, version;
        bool isNever;
    } rows[] = {
        {"older than what it asks for", "BOTH", "AB010203 COMPATIBLE=AB010204", true},
        {"as new as what it asks for, same allowed", "BOTH", "AB010203 COMPATIBLE=AB010203", false},
        {"as new as what it asks for, newer only", "NO", "AB010203 COMPATIBLE=AB010203", true},
        {"newer than what it asks for", "NO", "AB010203 COMPATIBLE=AB010202", false},
        {"any version may be replaced", "YES", "AB010203 COMPATIBLE=AB019999", false},
        {"the number 0 is newer than none", "NO", "AB000000 ", true},
        {"the number 0 is the same as itself", "BOTH", "AB000000 ", false},
        {"eight digits under YES", "YES", "ABCD20240102. COMPATIBLE=ABCD20240101.", true},
        {"eight digits without a comparison", "YES", "ABCD20240102. ", false},
        {"a major number of 0 under YES", "YES", "00.10 COMPATIBLE=00.05", true},
        {"a major number above 0 under YES", "YES", "01.10 COMPATIBLE=00.05", false},
        {"three points", "NO", "ABCDEFGH.a.01.00 ", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(never(row.rule, row.version), row.isNever) << row.why;
}

TEST(VympackVersionRowCheck, ASecondRowForAFirmwareIsNamed)
{
    expectRows({{"in other case",
                 kVersion.c_str(),
                 kVersion + replaced(kVersion, "MAIN=", "Main="),
                 {"warning duplicate-firmware"},
                 12,
                 9}});
}

TEST(VympackVersionRowCheck, MoreRowsThanTheProgramsReadAreNamed)
{
    std::string many;
    for (int i = 0; i <= 1000; ++i)
        many += kVersion;
    const auto found = namesOf(check(replaced(goodDescription(), kVersion, many)));
    EXPECT_TRUE(found.contains("error too-many-versions"));
    many.resize(many.size() - kVersion.size());
    const auto allowed = namesOf(check(replaced(goodDescription(), kVersion, many)));
    EXPECT_FALSE(allowed.contains("error too-many-versions"));
}

TEST(VympackVersionRowCheck, WithoutFilesImagesAreNotLookedFor)
{
    Defects defects;
    checkDescription(goodDescription(), {"VYMINFO.txt", {}, {}}, nullptr, defects);
    EXPECT_THAT(namesOf(defects), IsEmpty());
}
