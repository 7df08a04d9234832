// SPDX-License-Identifier: MIT
#include "UI/vymParseController.h"
#include "VYM/vymBindInfo.h"
#include "tests/support/Package.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using Texts = std::vector<std::string>;

// The description of this process, loaded from a container that also has one image.
class Description : public testing::Test {
protected:
    ~Description() override
    {
        delete vymBindInfo::Instance();
        g_VymInfo.loadData("", 0, load_vyminfo);
    }
    void open(std::initializer_list<std::string_view> texts)
    {
        package.file("main.bin", "image").description(texts).open();
    }
    Package package;
};

// Checks the results of an unloaded description.
void expectEmptyDescription()
{
    Texts list;
    int number = 0;
    yesno_type answer = yesno_none;
    EXPECT_FALSE(vyminfo_getModelNameArray(list));
    EXPECT_FALSE(vyminfo_getDriverName(list));
    EXPECT_FALSE(vyminfo_getPort(list));
    EXPECT_FALSE(vyminfo_getDeviceIDModelName(list));
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(vyminfo_getPortNo(number));
    EXPECT_EQ(number, 48350);
    EXPECT_TRUE(vyminfo_getUpdateTime(number));
    EXPECT_EQ(number, 0);
    EXPECT_TRUE(vyminfo_getAllowVersionDown(answer));
    EXPECT_EQ(answer, yesno_no);
    EXPECT_TRUE(g_VymInfo.getUseDriverOnly(answer));
    EXPECT_EQ(answer, yesno_yes);
}

} // namespace

TEST_F(Description, IsLoadedFromTheContainer)
{
    package.file("main.bin", "image").description({"MODELNAME \"Model 100\"", "PORTNO 8000"});
    package.folder().write("VYMBINDDATA", package.bytes());
    Package::openFolder(package.folder().path().string());
    EXPECT_EQ(vymParseController::loadData(), 0);
    EXPECT_EQ(vymParseController::getModelName(), "Model 100");
    EXPECT_EQ(vymParseController::getPortNo(), 8000);
    EXPECT_TRUE(vymbind_isContainer());
}

TEST_F(Description, IsEmptyWithoutAContainer)
{
    const TempFolder folder;
    Package::openFolder(folder.path().string());
    EXPECT_EQ(vyminfo_loadfile(), 0);
    EXPECT_FALSE(vymbind_isContainer());
    expectEmptyDescription();
}

TEST_F(Description, IsEmptyWhereTheContainerHoldsNothingElse)
{
    package.description({"PORTNO 1"});
    package.folder().write("VYMBINDDATA", package.bytes());
    Package::openFolder(package.folder().path().string());
    unsigned long size = 77;
    EXPECT_TRUE(vymBindInfo::Instance()->getBindFileSize("VYMINFO.txt", size));
    EXPECT_EQ(vyminfo_loadfile(), 0);
    expectEmptyDescription();
    EXPECT_FALSE(vymBindInfo::Instance()->getBindFileSize("VYMINFO.txt", size))
        << "the container was closed";
}

TEST_F(Description, IsEmptyIfTheContainerHasNoDescription)
{
    package.file("main.bin", "image").file("sub.bin", "image");
    package.folder().write("VYMBINDDATA", package.bytes());
    Package::openFolder(package.folder().path().string());
    EXPECT_EQ(vyminfo_loadfile(), 0);
    EXPECT_TRUE(vymbind_isContainer());
    expectEmptyDescription();
}

TEST_F(Description, OfAnUnbelievableSizeIsRefused)
{
    constexpr std::uint32_t kMost = 16 * 1024 * 1024;
    for (const std::uint32_t size : {kMost + 1, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        Package huge;
        huge.file("main.bin", "image").entry("VYMINFO.txt", 0, size);
        huge.folder().write("VYMBINDDATA", huge.bytes());
        Package::openFolder(huge.folder().path().string());
        EXPECT_EQ(vyminfo_loadfile(), -1) << size;
        expectEmptyDescription();
    }
}

TEST_F(Description, ThatIsIncompleteIsReadAsFarAsItGoes)
{
    package.file("main.bin", "PORTNO 8000\r\n").entry("VYMINFO.txt", 0, 100000);
    package.folder().write("VYMBINDDATA", package.bytes());
    Package::openFolder(package.folder().path().string());
    EXPECT_EQ(vyminfo_loadfile(), 0);
    EXPECT_EQ(vymParseController::getPortNo(), 8000);
}

TEST_F(Description, MayBeLoadedAgain)
{
    open({"PORTNO 8000"});
    EXPECT_EQ(vyminfo_loadfile(), 0);
    EXPECT_EQ(vymParseController::getPortNo(), 8000);
}

TEST_F(Description, AnswersEveryFlatTextQuestion)
{
    open({"TGMNAME t", "MODELNAME m n", "DRIVERNAME d1 d2", "PORT USB NET", "PRODUCT p",
          "DEVICEIDMODELNAME i"});
    std::string text;
    EXPECT_TRUE(vyminfo_getTgmName(text));
    EXPECT_EQ(text, "t");
    EXPECT_TRUE(vyminfo_getModelName(text));
    EXPECT_EQ(text, "m");
    EXPECT_TRUE(vyminfo_getProductName(text));
    EXPECT_EQ(text, "p");
    const struct {
        bool (*get)(Texts&);
        Texts values;
    } lists[] = {{&vyminfo_getModelNameArray, {"m", "n"}},
                 {&vyminfo_getDriverName, {"d1", "d2"}},
                 {&vyminfo_getPort, {"USB", "NET"}},
                 {&vyminfo_getDeviceIDModelName, {"i"}}};
    for (const auto& list : lists) {
        Texts values;
        EXPECT_TRUE(list.get(values));
        EXPECT_EQ(values, list.values);
    }
}

TEST_F(Description, AnswersEveryFlatNumberAndYesNoQuestion)
{
    open({"PORTNO 1", "ENTERTIME 2", "EXITTIME 3", "UPDATETIME 4", "MAXPACKET 5", "USEDXRL YES",
          "NEEDENTEROPERATION BOTH", "NEEDEXITOPERATION YES", "ALLOWVERSIONDOWN BOTH",
          "SPECIALCMDPATTERN YES", "SUPPORT_COMMAND 5001"});
    const struct {
        bool (*get)(int&);
        int value;
    } numbers[] = {{&vyminfo_getPortNo, 1},
                   {&vyminfo_getEnterTime, 2},
                   {&vyminfo_getExitTime, 3},
                   {&vyminfo_getUpdateTime, 4},
                   {&vyminfo_getMaxPacket, 5}};
    for (const auto& number : numbers) {
        int value = 0;
        EXPECT_TRUE(number.get(value));
        EXPECT_EQ(value, number.value);
    }
    const struct {
        bool (*get)(yesno_type&);
        yesno_type value;
    } answers[] = {{&vyminfo_getUseDXRL, yesno_yes},
                   {&vyminfo_getNeedEnterOperation, yesno_both},
                   {&vyminfo_getNeedExitOparetion, yesno_yes},
                   {&vyminfo_getAllowVersionDown, yesno_both},
                   {&vyminfo_getSpecialCmdPattern, yesno_yes}};
    for (const auto& answer : answers) {
        yesno_type value = yesno_none;
        EXPECT_TRUE(answer.get(value));
        EXPECT_EQ(value, answer.value);
    }
    std::vector<int> commands;
    EXPECT_TRUE(vyminfo_getSupportCommand(commands));
    EXPECT_EQ(commands, std::vector<int>{0x5001});
}

TEST_F(Description, AnswersEveryFlatVersionQuestion)
{
    open({"VERSION MAIN=0110 main.bin sub.bin COMPATIBLE=0100 HEADER=1 DISPVER=1.10",
          "PLATFORMVERSION MACOS=1040 1060"});
    std::string firm, version, file, sub, compatible, header;
    EXPECT_TRUE(vyminfo_getVersion(0, firm, version, file, sub, compatible, header));
    EXPECT_EQ((Texts{firm, version, file, sub, compatible, header}),
              (Texts{"MAIN", "0110", "main.bin", "sub.bin", "0100", "1"}));
    EXPECT_FALSE(vyminfo_getVersion(1, firm, version, file, sub, compatible, header));
    EXPECT_TRUE(vyminfo_getDispFirmVersion(0, firm, version));
    EXPECT_EQ((Texts{firm, version}), (Texts{"MAIN", "1.10"}));
    EXPECT_FALSE(vyminfo_getTargetInfoVersion(0, firm, version)) << "not a printer's text";
    EXPECT_FALSE(vyminfo_getVymBindVersion(0, firm, version)) << "not a version text";
    long highest = 0;
    long lowest = 0;
    EXPECT_TRUE(vyminfo_getPlatformVersion(4, highest, lowest));
    EXPECT_EQ(highest, 0x1060);
    EXPECT_EQ(lowest, 0x1040);
    EXPECT_FALSE(vyminfo_getPlatformVersion(3, highest, lowest));
}

TEST(FlatHelpers, AnswerAboutTextsAndLists)
{
    std::string text = "abc", empty;
    Texts texts{"a", "b"};
    std::vector<int> numbers{1, 2, 3};
    EXPECT_EQ(vyminfo_toString(text), text.c_str());
    EXPECT_FALSE(vyminfo_isEmpty(text));
    EXPECT_TRUE(vyminfo_isEmpty(empty));
    EXPECT_EQ(vyminfo_getStringArraySize(texts), 2);
    EXPECT_EQ(vyminfo_getIntArraySize(numbers), 3);
}

TEST_F(Description, GivesTheWindowValues)
{
    open({"TGMNAME t", "MODELNAME \"Model 100\" n", "DRIVERNAME d1 \"d 2\"", "DEVICEIDMODELNAME i",
          "PORTNO 8000", "NEEDENTEROPERATION YES", "NEEDEXITOPERATION BOTH", "ALLOWVERSIONDOWN YES",
          "VERSION MAIN=0110 main.bin", "PLATFORMVERSION MACOS=1040"});
    EXPECT_EQ(vymParseController::getTgmName(), "t");
    EXPECT_EQ(vymParseController::getModelName(), "Model 100");
    EXPECT_EQ(vymParseController::getDriverName(), (Texts{"d1", "d 2"}));
    EXPECT_EQ(vymParseController::getDeviceIDModelName(), Texts{"i"});
    EXPECT_EQ(vymParseController::getPortNo(), 8000);
    EXPECT_EQ(vymParseController::getNeedEnterOperation(), yesno_yes);
    EXPECT_EQ(vymParseController::getNeedExitOperation(), yesno_both);
    EXPECT_EQ(vymParseController::getAllowVersionDown(), yesno_yes);
    std::string firm, version;
    EXPECT_TRUE(vymParseController::getDispFirmVersion(0, firm, version));
    EXPECT_EQ((Texts{firm, version}), (Texts{"MAIN", "0110"}));
    long highest = 0;
    long lowest = 0;
    EXPECT_TRUE(vymParseController::getPlatformMaxVersion(highest, lowest));
    EXPECT_EQ(highest, -257);
    EXPECT_EQ(lowest, 0x1040);
}

TEST_F(Description, GivesTheWindowDefaultsWhereRowsAreMissing)
{
    open({"OTHER 1"});
    EXPECT_EQ(vymParseController::getTgmName(), "");
    EXPECT_EQ(vymParseController::getModelName(), "");
    EXPECT_EQ(vymParseController::getDriverName(), Texts{});
    EXPECT_EQ(vymParseController::getDeviceIDModelName(), Texts{});
    EXPECT_EQ(vymParseController::getPortNo(), 48350);
    EXPECT_EQ(vymParseController::getNeedEnterOperation(), yesno_no);
    EXPECT_EQ(vymParseController::getNeedExitOperation(), yesno_no);
    EXPECT_EQ(vymParseController::getAllowVersionDown(), yesno_no);
    long highest = 5;
    long lowest = 6;
    EXPECT_FALSE(vymParseController::getPlatformMaxVersion(highest, lowest));
    EXPECT_EQ(highest, 5);
    EXPECT_EQ(lowest, 6);
}

TEST_F(Description, GivesTheWindowNothingWhereRowsAreEmpty)
{
    open({"TGMNAME", "MODELNAME", "DRIVERNAME", "DEVICEIDMODELNAME", "PORTNO",
          "NEEDENTEROPERATION MAYBE", "NEEDEXITOPERATION", "ALLOWVERSIONDOWN x"});
    EXPECT_EQ(vymParseController::getTgmName(), "");
    EXPECT_EQ(vymParseController::getModelName(), "");
    EXPECT_EQ(vymParseController::getDriverName(), Texts{});
    EXPECT_EQ(vymParseController::getDeviceIDModelName(), Texts{});
    EXPECT_EQ(vymParseController::getPortNo(), -1);
    EXPECT_EQ(vymParseController::getNeedEnterOperation(), yesno_none);
    EXPECT_EQ(vymParseController::getNeedExitOperation(), yesno_none);
    EXPECT_EQ(vymParseController::getAllowVersionDown(), yesno_none);
}

TEST_F(Description, SetsTheShownVersionOnlyWhereThereIsOne)
{
    open({"VERSION DISPFIRM=X"});
    std::string firm = "before", version = "before";
    EXPECT_FALSE(vymParseController::getDispFirmVersion(0, firm, version));
    EXPECT_FALSE(vymParseController::getDispFirmVersion(1, firm, version));
    EXPECT_EQ((Texts{firm, version}), (Texts{"before", "before"}));
}

TEST_F(Description, ComesWithTheSizesOfTheImages)
{
    package.entry("cut.bin", 0, 100000);
    open({"PORTNO 1"});
    unsigned long size = 0;
    EXPECT_TRUE(vymbind_getFileSize("main.bin", size));
    EXPECT_EQ(size, 5U);
    EXPECT_FALSE(vymbind_getFileSize("cut.bin", size)) << "its bytes are not all there";
    EXPECT_FALSE(vymbind_getFileSize("missing", size));
    EXPECT_FALSE(vymbind_getFileSize(nullptr, size));
}
