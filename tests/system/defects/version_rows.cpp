// SPDX-License-Identifier: MIT
// Defects of the VERSION rows and of the images that they name.
#include "tests/system/defects/Defective.h"

namespace defects {

namespace {

using namespace vympack::defect;

constexpr const char* kRow = "MAIN=AB010200 main.img MAIN.FW";
constexpr unsigned kTooMany = 1001;
constexpr unsigned kLetters = 26;

// 1001 rows of different names; names have no digits.
std::string tooManyRows()
{
    std::string text;
    for (unsigned i = 0; i < kTooMany; ++i) {
        std::string name = "F";
        for (unsigned left = i, digit = 0; digit < 3; left /= kLetters, ++digit)
            name += static_cast<char>('A' + left % kLetters);
        text += "VERSION " + name + "=AB010200 main.img MAIN.FW\r\n";
    }
    return packed(filesWith(description({{"VERSION MAIN=AB010200 main.img MAIN.FW\r\n", text}})));
}

std::string twoRowsOfOneFirmware()
{
    auto files = filesWith(description() + "VERSION MAIN=AB010300 second.img SECOND.FW\r\n");
    files.emplace_back("second.img", "the second image");
    return packed(files);
}

std::string withAFileMore()
{
    auto files = filesWith(description());
    files.emplace_back("spare.img", "a spare image");
    return packed(files);
}

void isPassedOver(Defective& package)
{
    const auto result = package.update();
    EXPECT_EQ(result["exit_code"], 2) << result;
    EXPECT_EQ(result["firmware"][0]["reason"], "not-listed");
}

void sendsBoth(Defective& package)
{
    EXPECT_EQ(package.update()["exit_code"], 0);
    EXPECT_TRUE(package.stored("MAIN.FW") == mainImage());
    EXPECT_EQ(package.stored("SECOND.FW"), "the second image");
}

void isNewerThanNoOther(Defective& package)
{
    endsWith(2, "MAIN=ABCD0")(package);
    endsWith(2, "MAIN=ABCD0100")(package);
}

void isSentToNoPrinter(Defective& package)
{
    endsWith(22, "MAIN=AB010100")(package);
    endsWith(2, "MAIN=AB010300")(package);
}

void sendsTheMainImageAlone(Defective& package)
{
    EXPECT_EQ(package.update()["exit_code"], 0);
    EXPECT_TRUE(package.stored("MAIN.FW") == mainImage());
    EXPECT_EQ(package.transcript().find("spare"), std::string::npos);
}

void isSentWithoutAName(Defective& package)
{
    const auto result = package.update();
    EXPECT_EQ(result["firmware_bytes_sent"], true) << result;
    EXPECT_EQ(package.stored("MAIN.FW"), std::nullopt);
    EXPECT_NE(package.transcript().find("\tin\t0x5002\t-\t"), std::string::npos);
}

std::vector<Row> rowRows()
{
    return {
        {"NoVersionRow",
         kNoVersionRow,
         changed(std::string("VERSION ") + kRow + "\r\n", ""),
         isNoPackage,
         {"image-unused"}},
        {"MoreThan1000Rows", kTooManyVersions, tooManyRows, isNoPackage},
        {"ARowThatNamesNoFirmware", kNoFirmwareName, changed("MAIN=AB010200 ", ""), isPassedOver},
        {"AVersionThatIsNotFirst", kVersionNameNotFirst,
         changed("MAIN=AB010200 main.img", "main.img MAIN=AB010200"), isPassedOver},
        {"AFirmwareNameWithADigit", kFirmwareNameDigit, changed("MAIN=", "MAIN2="),
         [](Defective& package) {
             const auto result = package.update("MAIN2=AB010100");
             EXPECT_EQ(result["exit_code"], 2) << result;
             EXPECT_EQ(result["firmware"][0]["reason"], "not-listed");
         }},
        {"TwoRowsOfOneFirmware", kDuplicateFirmware, twoRowsOfOneFirmware, sendsBoth},
    };
}

std::vector<Row> formRows()
{
    return {
        {"AVersionOfNoForm", kUnknownVersionForm, changed("AB010200", "1.2"), endsWith(15)},
        {"AVersionOfNoFormThatIsNotCompared", kUnknownVersionForm,
         changed({{"AB010200", "1.2"}, {"ALLOWVERSIONDOWN NO", "ALLOWVERSIONDOWN YES"}}),
         endsWith(0)},
        {"AVersionWithoutANumber", kVersionWithoutNumber, changed("AB010200", "ABCD"),
         isNewerThanNoOther},
        {"AVersionWithATail", kVersionTail, changed("AB010200", "01.20b"),
         endsWith(2, "MAIN=01.20")},
        {"ACompatibleVersionOfAPointedOne", kCompatibleIgnored,
         changed("AB010200 main.img MAIN.FW", "01.20 main.img MAIN.FW COMPATIBLE=01.10"),
         endsWith(0, "MAIN=01.05")},
        {"ACompatibleVersionAboveTheUpdate", kNeverSent,
         changed("MAIN.FW", "MAIN.FW COMPATIBLE=AB010300"), isSentToNoPrinter},
    };
}

std::vector<Row> imageRows()
{
    const std::string longName(32, 'N');
    return {
        {"NoImageName",
         kNoImageName,
         changed(kRow, "MAIN=AB010200"),
         isNotSent,
         {"image-unused", "no-sub-file-name"}},
        {"AnImageThatIsNotThere",
         kImageMissing,
         changed("main.img", "other.img"),
         isNotSent,
         {"image-unused"}},
        {"AFileThatNoRowNames", kImageUnused, withAFileMore, sendsTheMainImageAlone},
        {"NoNameForThePrinter", kNoSubFileName, changed(" MAIN.FW", ""), isSentWithoutAName},
        {"ANameTooLongForThePrinter", kSubFileNameTooLong, changed("MAIN.FW", longName),
         isSentWithoutAName},
        {"AQuotedName", kQuotedToken, changed("MAIN=", "\"MAIN\"="), isPassedOver},
        {"ATokenThatNoProgramReads", kUnknownToken, changed("MAIN.FW", "MAIN.FW COLOUR=red"),
         endsWith(0)},
    };
}

} // namespace

std::vector<Row> versionRows()
{
    std::vector<Row> all;
    for (const auto& some : {rowRows(), formRows(), imageRows()})
        for (const auto& row : some)
            all.push_back(row);
    return all;
}

} // namespace defects
