#include "Tools/vympack/DescriptionCheck.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

namespace {

const std::vector<EmbeddedFile> kFiles{{"VYMINFO.txt", 400, {}}, {"main.bin", 8, {}}};

Defects check(const std::string& text, const std::vector<EmbeddedFile>& files = kFiles)
{
    Defects defects;
    checkDescription(text, {"VYMINFO.txt", {}, {}}, &files, defects);
    return defects;
}

struct Row {
    const char* why;
    const char* from; // in the good description
    std::string to;
    std::vector<std::string> found;
    std::size_t row; // of the first defect
    std::size_t column;
};

void expectRows(const std::vector<Row>& rows)
{
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto defects = check(replaced(goodDescription(), row.from, row.to));
        EXPECT_THAT(namesOf(defects), UnorderedElementsAreArray(row.found));
        if (row.found.empty() || defects.kept().empty())
            continue;
        EXPECT_EQ(defects.kept().front().place.row, row.row);
        EXPECT_EQ(defects.kept().front().place.column, row.column);
    }
}

const std::string kVersion =
    "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3\r\n";

} // namespace

TEST(VympackDescription, TheGoodOneHasNoDefect)
{
    EXPECT_THAT(namesOf(check(goodDescription())), IsEmpty());
}

TEST(VympackDescription, BlankRowsAndCommentsAreFine)
{
    const std::string extra = "\r\n  \r\n\t\r\n# a comment\r\n; another\r\n// and another\r\n"
                              "  # indented\r\n--- VERSION ---\r\n  some indented words\r\n";
    EXPECT_THAT(namesOf(check(extra + goodDescription() + extra)), IsEmpty());
}

TEST(VympackDescription, TheLastRowNeedsNoEnd)
{
    auto text = goodDescription();
    text.resize(text.size() - 2);
    EXPECT_THAT(namesOf(check(text)), IsEmpty());
}

TEST(VympackDescription, BytesThatReadersCannotHandleAreNamed)
{
    expectRows({
        {"a bare line feed",
         "\"Model 100\"\r\nDRIVER",
         "\"Model 100\"\nDRIVER",
         {"error bare-line-feed"},
         2,
         22},
        {"a bare carriage return", "USB\r\n", "USB\r", {"error bare-carriage-return"}, 4, 9},
        {"a byte-order mark", "TGMNAME", "\xEF\xBB\xBFTGMNAME", {"error byte-order-mark"}, 1, 1},
        {"16-bit characters", "TGMNAME", "\xFF\xFETGMNAME", {"error byte-order-mark"}, 1, 1},
        {"16-bit characters, other order",
         "TGMNAME",
         "\xFE\xFFTGMNAME",
         {"error byte-order-mark"},
         1,
         1},
        {"a NUL byte", "USB", std::string("U\0B", 3), {"error nul-byte"}, 4, 7},
        {"a carriage return before a row's end",
         "USB\r\n",
         "USB\r\r\n",
         {"error bare-carriage-return"},
         4,
         9},
    });
}

TEST(VympackDescription, LineFeedsThroughoutAreOneDefectAndTheRestIsStillChecked)
{
    auto text = replaced(goodDescription(), "PORTNO 48350", "PORTNO 0");
    std::erase(text, '\r');
    const auto defects = check(text);
    EXPECT_THAT(namesOf(defects), ElementsAre("error bad-number", "error bare-line-feed"));
    EXPECT_THAT(defects.kept().front().message, HasSubstr("12 times"));
    EXPECT_EQ(defects.kept().back().place.row, 5U);
}

TEST(VympackDescription, RowsAndTheirKeysAreChecked)
{
    expectRows({
        {"a misspelt key", "ENTERTIME 5", "ENTRETIME 5", {"warning unknown-key"}, 6, 1},
        {"a key of the printer's text",
         "ENTERTIME 5",
         "MAXPACKET 5",
         {"warning unknown-key"},
         6,
         1},
        {"a key that is only a beginning",
         "PORTNO 48350",
         "PORTNO 48350\r\nPORTNUMBER 1",
         {"warning unknown-key"},
         6,
         1},
        {"no blank behind the key",
         "PORTNO 48350",
         "PORTNO=48350",
         {"warning unknown-key", "error bad-number"},
         5,
         1},
        {"blanks before a key", "PORTNO 48350", "\tPORTNO 48350", {"error leading-blank"}, 5, 1},
        {"a key twice",
         "ENTERTIME 5",
         "ENTERTIME 5\r\nENTERTIME 6",
         {"warning duplicate-key"},
         7,
         1},
        {"a longer key before its beginning",
         "PORT USB\r\nPORTNO 48350",
         "PORTNO 48350\r\nPORT USB",
         {"warning prefix-shadow"},
         4,
         1},
        {"only the longer key", "PORT USB\r\n", "", {}, 0, 0},
        {"a key in lower case", "PORTNO", "portno", {}, 0, 0},
        {"no model", "TGMNAME", "# TGMNAME", {"error missing-key"}, 0, 0},
        {"no model names", "MODELNAME", "# MODELNAME", {"warning missing-key"}, 0, 0},
        {"no driver names", "DRIVERNAME", "# DRIVERNAME", {"warning missing-key"}, 0, 0},
        {"no VERSION row",
         kVersion.c_str(),
         "",
         {"error no-version-row", "warning image-unused"},
         0,
         0},
    });
}

TEST(VympackDescription, ValuesAreChecked)
{
    expectRows({
        {"an empty model", "TGMNAME \"Model 100\"", "TGMNAME", {"error empty-value"}, 1, 1},
        {"an empty list", "DRIVERNAME \"Model 100\"", "DRIVERNAME ", {"warning empty-value"}, 3, 1},
        {"a model without its quotes",
         "TGMNAME \"Model 100\"",
         "TGMNAME Model 100",
         {"warning unread-text"},
         1,
         15},
        {"a quote that stays open",
         "TGMNAME \"Model 100\"",
         "TGMNAME \"Model 100",
         {"warning unbalanced-quote"},
         1,
         9},
        {"an answer that is none", "BOTH", "MAYBE", {"error bad-yes-no"}, 9, 18},
        {"an equals sign before the answer", "DOWN BOTH", "DOWN = YES", {}, 0, 0},
        {"no answer", "DOWN BOTH", "DOWN", {"error bad-yes-no"}, 9, 1},
        {"an address that is none",
         "PORT USB",
         "DEFAULTIPADDRESS 192.168.0.256",
         {"warning bad-default-address"},
         4,
         18},
        {"an address", "PORT USB", "DEFAULTIPADDRESS 192.168.0.25", {}, 0, 0},
    });
}

TEST(VympackDescription, NumbersAreChecked)
{
    expectRows({
        {"port 0", "48350", "0", {"error bad-number"}, 5, 8},
        {"a port beyond 16 bits", "48350", "65536", {"error bad-number"}, 5, 8},
        {"the highest port", "48350", "65535", {}, 0, 0},
        {"a number beyond 32 bits", "48350", "99999999999999999999", {"error bad-number"}, 5, 8},
        {"a quoted number", "48350", "\"48350\"", {"error bad-number"}, 5, 8},
        {"no number", "48350", "port", {"error bad-number"}, 5, 8},
        {"a negative time", "ENTERTIME 5", "ENTERTIME -5", {"error bad-number"}, 6, 11},
        {"an empty time", "EXITTIME 5", "EXITTIME", {"error bad-number"}, 7, 1},
        {"a time with a unit", "EXITTIME 5", "EXITTIME 5s", {"error bad-number"}, 7, 10},
        {"more than the number",
         "EXITTIME 5",
         "EXITTIME 5 seconds",
         {"warning unread-text"},
         7,
         12},
        {"enter time 0", "ENTERTIME 5", "ENTERTIME 0", {}, 0, 0},
        {"no update time", "UPDATETIME 30\r\n", "", {"error no-update-time"}, 0, 0},
        {"update time 0", "UPDATETIME 30", "UPDATETIME 0", {"error no-update-time"}, 8, 12},
        {"a time that has too many milliseconds",
         "UPDATETIME 30",
         "UPDATETIME 2147484",
         {"error bad-number"},
         8,
         12},
    });
}

TEST(VympackDescription, PlatformBoundsAreChecked)
{
    expectRows({
        {"no row", "PLATFORMVERSION MACOS=0\r\n", "", {"error no-platform-version"}, 0, 0},
        {"another platform only", "MACOS=0", "OTHER=0", {"error no-platform-version"}, 0, 0},
        {"another platform first",
         "PLATFORMVERSION",
         "PLATFORMVERSION OTHER=x\r\nPLATFORMVERSION",
         {},
         0,
         0},
        {"no equals sign",
         "MACOS=0",
         "MACOS 0",
         {"error bad-platform-version", "error no-platform-version"},
         10,
         17},
        {"not hexadecimal", "MACOS=0", "MACOS=10.5", {"error bad-platform-version"}, 10, 23},
        {"a quoted bound", "MACOS=0", "MACOS=\"1040\"", {"error bad-platform-version"}, 10, 23},
        {"the highest below the lowest",
         "MACOS=0",
         "MACOS=1060 1040",
         {"error bad-platform-version"},
         10,
         28},
        {"a range", "MACOS=0", "macos=0x1040 1060", {}, 0, 0},
        {"one version", "MACOS=0", "MACOS=1040 1040", {}, 0, 0},
        {"no upper bound", "MACOS=0", "MACOS=1040 -0101", {}, 0, 0},
        {"an upper bound that is no number",
         "MACOS=0",
         "MACOS=1040 any",
         {"error bad-platform-version"},
         10,
         28},
        {"the platform twice",
         "MACOS=0",
         "MACOS=0\r\nPLATFORMVERSION MACOS=1",
         {"warning duplicate-key"},
         11,
         1},
    });
}

TEST(VympackDescription, FirmwareNamesAndVersionsAreChecked)
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
        {"a letter behind the leading four",
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

TEST(VympackDescription, ImagesAndSubFileNamesAreChecked)
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

TEST(VympackDescription, MisspeltKeysAndTokensGetTheRightSuggestion)
{
    const struct {
        const char *word, *suggestion;
    } rows[] = {
        {"TGMNAM", "mean TGMNAME?"},         {"TMGNAME", "mean TGMNAME?"},
        {"VERISON", "mean VERSION?"},        {"modelnames2", "counts as MODELNAME"},
        {"UPDATE_TIME", "mean UPDATETIME?"}, {"NEEDEXITOPARETION", "mean NEEDEXITOPERATION?"},
        {"COLOUR", "begin it with #"},       {"SUPPORT_COMMAND", "that a printer sends"},
    };
    for (const auto& row : rows) {
        const auto defects = check(goodDescription() + row.word + " X\r\n");
        ASSERT_THAT(defects.kept(), testing::SizeIs(1)) << row.word;
        EXPECT_THAT(defects.kept()[0].message, HasSubstr(row.suggestion));
    }
}

TEST(VympackDescription, AnImageThatNoRowNamesIsUnused)
{
    auto files = kFiles;
    files.push_back({"boot.bin", 8, {"package", {}, 1234}});
    const auto defects = check(goodDescription(), files);
    EXPECT_THAT(namesOf(defects), ElementsAre("warning image-unused"));
    EXPECT_EQ(defects.kept()[0].place.offset, 1234U);
}

TEST(VympackDescription, ThousandsOfDefectsAreCountedButNotKept)
{
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += "VERSION\r\nNOKEY\r\n";
    const auto defects = check(text);
    EXPECT_GE(defects.errors(), 40'000U);
    EXPECT_LE(defects.kept().size(), 20 * Defects::kKeptPerKind);
}

TEST(VympackDescription, EveryCutOfItIsCheckedWithoutHarm)
{
    const auto text = goodDescription() + std::string("\0\xFF\"=\t \r", 7);
    for (std::size_t from = 0; from < text.size(); from += 3) {
        for (std::size_t length = 0; from + length <= text.size(); length += 7)
            check(text.substr(from, length));
    }
}

TEST(VympackDescription, RowsThatNoPrinterCanEverTakeAreNamed)
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

TEST(VympackDescription, ASecondRowForAFirmwareIsNamed)
{
    expectRows({{"in other case",
                 kVersion.c_str(),
                 kVersion + replaced(kVersion, "MAIN=", "Main="),
                 {"warning duplicate-firmware"},
                 12,
                 9}});
}

TEST(VympackDescription, MoreRowsThanTheProgramsReadAreNamed)
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

TEST(VympackDescription, APackageThatNoUsbPrinterCanMatchIsNamed)
{
    const std::string models = "DEVICEIDMODELNAME \"Model 100\"\r\n";
    expectRows({
        {"a blank in the model", models.c_str(), "", {"warning no-usb-model"}, 0, 0},
        {"a bracket in the model",
         models.c_str(),
         "TGMNAME Model(1)\r\n",
         {"warning no-usb-model", "warning duplicate-key"},
         12,
         1},
    });
    auto text = replaced(goodDescription(), models, "");
    text = replaced(text, "TGMNAME \"Model 100\"", "TGMNAME Model-100");
    EXPECT_THAT(namesOf(check(text)), IsEmpty());
}

TEST(VympackDescription, TextsThatCannotBeShownAreNamed)
{
    expectRows({
        {"a control character",
         "MODELNAME \"Model",
         "MODELNAME \"Mo\x1B"
         "del",
         {"warning unprintable-text"},
         2,
         14},
        {"bytes that are no UTF-8",
         "DISPVER=1.2.3",
         "DISPVER=1.2\xFF",
         {"warning unprintable-text"},
         11,
         72},
        {"a sign that turns the reading direction",
         "DISPVER=1.2.3",
         "DISPVER=\xE2\x80\xAE"
         "1",
         {"warning unprintable-text"},
         11,
         69},
        {"letters beyond ASCII",
         "MODELNAME \"Model",
         "MODELNAME \"M\xC3\xB6"
         "del",
         {},
         0,
         0},
        {"a tab", "MODELNAME \"Model", "MODELNAME\t\"Model", {}, 0, 0},
    });
}

TEST(VympackDescription, WithoutFilesImagesAreNotLookedFor)
{
    Defects defects;
    checkDescription(goodDescription(), {"VYMINFO.txt", {}, {}}, nullptr, defects);
    EXPECT_THAT(namesOf(defects), IsEmpty());
}

TEST(VympackDescription, TheRowToWriteInsteadIsGiven)
{
    const struct {
        const char *why, *from, *to, *instead;
    } rows[] = {
        {"a number", "PORTNO 48350", "PORTNO 0", "PORTNO 48350"},
        {"an answer", "BOTH", "MAYBE", "ALLOWVERSIONDOWN BOTH"},
        {"a missing row", "PLATFORMVERSION MACOS=0\r\n", "", "PLATFORMVERSION MACOS=0"},
        {"quotes", "TGMNAME \"Model 100\"", "TGMNAME Model 100", "TGMNAME \"Model 100\""},
        {"a misspelt key", "ENTERTIME 5", "ENTRETIME 5", "ENTERTIME 5"},
        {"blanks in front", "PORTNO", " \tPORTNO", "PORTNO 48350"},
        {"name and version first", "MAIN=AB010203 main.bin", "main.bin MAIN=AB010203",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"a compatible version that does not count", "AB010203", "01.10",
         "VERSION MAIN=01.10 main.bin MAIN.BIN DISPVER=1.2.3"},
        {"a name with a digit", "MAIN=", "MAIN2=",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"no name towards the printer", " MAIN.BIN", "",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"a misspelt token", "COMPATIBLE=", "COMPATIBEL=",
         "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3"},
        {"no USB model", "DEVICEIDMODELNAME \"Model 100\"\r\n", "",
         "DEVICEIDMODELNAME \"Model 100\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto defects = check(replaced(goodDescription(), row.from, row.to));
        ASSERT_FALSE(defects.kept().empty());
        EXPECT_EQ(defects.kept().front().instead, row.instead);
    }
}

TEST(VympackDescription, WhatIsWrittenInsteadMendsTheDefect)
{
    const std::pair<const char*, const char*> rows[] = {
        {"PORTNO 48350", "PORTNO 0"},
        {"UPDATETIME 30", "UPDATETIME 0"},
        {"ALLOWVERSIONDOWN BOTH", "ALLOWVERSIONDOWN MAYBE"},
        {"TGMNAME \"Model 100\"", "TGMNAME Model 100"},
        {"PLATFORMVERSION MACOS=0", "PLATFORMVERSION MACOS=x"},
        {"PORTNO 48350", "PORTNO=48350"},
        {"MAIN.BIN", "MAIN.BIN OTHER.BIN"},
        {"MAIN=AB010203", "MAIN=AB01020X"},
        {"COMPATIBLE=AB010100", "COMPATIBLE=AB010204"},
        {"main.bin", "MAIN.bin"},
        {"DISPVER=1.2.3", "OTHER=1"},
    };
    for (const auto& [from, to] : rows) {
        SCOPED_TRACE(to);
        const auto broken = replaced(goodDescription(), from, to);
        const auto defects = check(broken);
        ASSERT_FALSE(defects.kept().empty());
        const auto& defect = defects.kept().front();
        std::size_t begin = 0;
        for (std::size_t row = 1; row < defect.place.row; ++row)
            begin = broken.find("\r\n", begin) + 2;
        auto mended = broken;
        mended.replace(begin, broken.find("\r\n", begin) - begin, defect.instead);
        EXPECT_THAT(namesOf(check(mended)), IsEmpty()) << defect.instead;
    }
}
