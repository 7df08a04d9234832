// SPDX-License-Identifier: MIT
#include "tests/VYM/RowParser.h"

#include <climits>
#include <gtest/gtest.h>
#include <string>

namespace {

using Texts = std::vector<std::string>;

} // namespace

TEST(NumberKeys, HaveDefaultsAndFailOnlyWithoutAValue)
{
    const struct {
        std::string key;
        bool (vymParse::*get)(int&) const;
        int missing;
    } keys[] = {{"PORTNO", &vymParse::getPortNo, 48350},
                {"ENTERTIME", &vymParse::getEnterTime, 0},
                {"EXITTIME", &vymParse::getExitTime, 0},
                {"UPDATETIME", &vymParse::getUpdateTime, 0}};
    for (const auto& key : keys) {
        SCOPED_TRACE(key.key);
        const auto answer = [&](const std::string& row, bool found) {
            int value = -99;
            EXPECT_EQ((RowParser({row}).*key.get)(value), found) << row;
            return value;
        };
        EXPECT_EQ(answer("OTHER 1", true), key.missing);
        EXPECT_EQ(answer(key.key, false), -1);
        EXPECT_EQ(answer(key.key + " \t", false), -1);
        EXPECT_EQ(answer(key.key + " 120", true), 120);
        EXPECT_EQ(answer(key.key + " \"120\"", true), 0) << "a quote is no digit";
        EXPECT_EQ(answer(key.key + " 99999999999", true), INT_MAX);
        EXPECT_EQ(answer(key.key + " -1", false), -1) << "reads like no value";
    }
}

TEST(YesNoKeys, HaveDefaultsAndFailOnlyWithoutAWord)
{
    const struct {
        std::string key;
        bool (vymParse::*get)(yesno_type&) const;
        yesno_type missing;
    } keys[] = {{"USEDXRL", &vymParse::getUseDXRL, yesno_no},
                {"NEEDENTEROPERATION", &vymParse::getNeedEnterOperation, yesno_no},
                {"NEEDEXITOPERATION", &vymParse::getNeedExitOparetion, yesno_no},
                {"ALLOWVERSIONDOWN", &vymParse::getAllowVersionDown, yesno_no},
                {"SPECIALCMDPATTERN", &vymParse::getSpecialCmdPattern, yesno_no},
                {"USEDRIVERONLY", &vymParse::getUseDriverOnly, yesno_yes}};
    for (const auto& key : keys) {
        SCOPED_TRACE(key.key);
        const auto answer = [&](const std::string& row, bool found) {
            yesno_type value = yesno_both;
            EXPECT_EQ((RowParser({row}).*key.get)(value), found) << row;
            return value;
        };
        EXPECT_EQ(answer("OTHER YES", true), key.missing);
        EXPECT_EQ(answer(key.key + " MAYBE", false), yesno_none);
        EXPECT_EQ(answer(key.key, false), yesno_none);
        EXPECT_EQ(answer(key.key + " YES", true), yesno_yes);
        EXPECT_EQ(answer(key.key + " = no", true), yesno_no);
        EXPECT_EQ(answer(key.key + " BOTH", true), yesno_both);
        EXPECT_EQ(answer(key.key + " NOT USED", true), yesno_no);
    }
}

TEST(TextKeys, GiveTheirFirstTokenAndLeaveTheOutputWhereTheyAreMissing)
{
    const struct {
        std::string key;
        bool (vymParse::*get)(std::string&) const;
    } keys[] = {{"TGMNAME", &vymParse::getTgmName},
                {"MODELNAME", &vymParse::getModelName},
                {"PRODUCT", &vymParse::getProductName},
                {"DEFAULTIPADDRESS", &vymParse::getDefaltIPAddress}};
    for (const auto& key : keys) {
        SCOPED_TRACE(key.key);
        std::string value = "before";
        EXPECT_FALSE((RowParser({"OTHER x"}).*key.get)(value));
        EXPECT_EQ(value, "before");
        EXPECT_TRUE((RowParser({key.key + " \"A B\" C", key.key + " D"}).*key.get)(value));
        EXPECT_EQ(value, "A B");
        EXPECT_FALSE((RowParser({key.key}).*key.get)(value));
        EXPECT_EQ(value, "");
    }
}

TEST(ListKeys, AppendTheirTokensAndNothingWhereTheyAreMissing)
{
    const struct {
        std::string key;
        bool (vymParse::*get)(Texts&) const;
    } keys[] = {{"MODELNAME", &vymParse::getModelName},
                {"DRIVERNAME", &vymParse::getDriverName},
                {"PORT", &vymParse::getPort},
                {"DEVICEIDMODELNAME", &vymParse::getDeviceIDModelName}};
    for (const auto& key : keys) {
        SCOPED_TRACE(key.key);
        Texts values{"before"};
        EXPECT_FALSE((RowParser({"OTHER x"}).*key.get)(values));
        EXPECT_TRUE((RowParser({key.key}).*key.get)(values));
        EXPECT_EQ(values, Texts{"before"});
        EXPECT_TRUE((RowParser({key.key + " \"A B\"\tC"}).*key.get)(values));
        EXPECT_EQ(values, (Texts{"before", "A B", "C"}));
    }
}

TEST(Ports, AreTakenFromThePortNumbersRowWhereThatComesFirst)
{
    Texts ports;
    EXPECT_TRUE(RowParser({"PORTNO 8000", "PORT USB"}).getPort(ports));
    EXPECT_EQ(ports, Texts{"8000"});
}

TEST(LargestPacket, IsANumberWithoutADefault)
{
    int bytes = 5;
    EXPECT_FALSE(RowParser({"OTHER 1"}, load_targetinfo).getMaxPacket(bytes));
    EXPECT_EQ(bytes, 5);
    EXPECT_TRUE(RowParser({"MAXPACKET 4096"}, load_targetinfo).getMaxPacket(bytes));
    EXPECT_EQ(bytes, 4096);
    EXPECT_TRUE(RowParser({"MAXPACKET"}, load_targetinfo).getMaxPacket(bytes));
    EXPECT_EQ(bytes, -1);
}

TEST(SupportedCommands, AreAppendedFromEveryRowInHexadecimal)
{
    std::vector<int> commands;
    EXPECT_FALSE(RowParser({"OTHER 1"}, load_targetinfo).getSupportCommand(commands));
    const RowParser parser({"SUPPORT_COMMAND 5001", "X", "support_command 0x5103 7",
                            "SUPPORT_COMMAND", "SUPPORT_COMMAND zz"},
                           load_targetinfo);
    EXPECT_TRUE(parser.getSupportCommand(commands));
    EXPECT_EQ(commands, (std::vector<int>{0x5001, 0x5103, -1, 0}));
    EXPECT_TRUE(RowParser({"OTHER 1"}).getSupportCommand(commands))
        << "what was there still counts";
}
