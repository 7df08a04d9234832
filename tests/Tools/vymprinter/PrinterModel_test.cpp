// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterModel.h"
#include "Tools/vymprinter/RequestBuffer.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterModel, TargetInfoHasARowForEverythingEndedByCrLf)
{
    PrinterModel model;
    model.name = "Model 100";
    model.firmware = {{"MAIN", "01.10"}, {"BOOT", "AB010203"}};
    model.maxPacket = 8192;
    EXPECT_EQ(targetInfoText(model),
              "TGMNAME \"Model 100\"\r\nVERSION MAIN=01.10\r\nVERSION BOOT=AB010203\r\n"
              "MAXPACKET 8192\r\nSUPPORT_COMMAND 5001\r\nSUPPORT_COMMAND 5002\r\n"
              "SUPPORT_COMMAND 5101\r\nSUPPORT_COMMAND 5102\r\nSUPPORT_COMMAND 5103\r\n");
    model.statusQuery = false;
    EXPECT_EQ(targetInfoText(model).find("5103"), std::string::npos);
}

TEST(VymprinterModel, AGivenTextSetsThePacketLimitWhenItsRowMakesSense)
{
    const struct {
        const char* row;
        std::uint32_t limit;
    } rows[] = {
        {"maxpacket\t1000\r\n", 1000},
        {"MAXPACKET 60\r\n", 65536},
        {"MAXPACKET\r\n", 65536},
        {"MAXPACKET -5\r\n", 65536},
        {"", 65536},
        {"X\r\nMAXPACKET 61", 61},
    };
    for (const auto& row : rows) {
        PrinterModel model;
        model.targetInfo = row.row;
        EXPECT_EQ(packetLimit(model), row.limit) << row.row;
    }
}

TEST(VymprinterModel, BlocksFitTheFirstReplyAndThePacketLimit)
{
    PrinterModel model;
    EXPECT_EQ(blockLimit(model), 4096U);
    model.maxPacket = 100;
    EXPECT_EQ(blockLimit(model), 100U);
    model.blockSize = 29;
    EXPECT_EQ(blockLimit(model), 29U);
}

} // namespace
