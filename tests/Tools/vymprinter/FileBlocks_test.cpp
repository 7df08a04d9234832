// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/FileBlocks.h"
#include "Tools/vymprinter/PrinterModel.h"
#include "tests/Tools/vymprinter/parsed_fault.h"
#include "tests/Tools/vymprinter/requests.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterFileBlocks, FileIsCutAndItsLastBlockHasTheSumOfAll)
{
    FileBlocks blocks("abcdefg", 28 + 3, {});
    const auto first = blocks.next();
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.total, 7U);
    EXPECT_EQ(first.checksum, 'a' + 'b' + 'c');
    EXPECT_EQ(blocks.next().offset, 3U);
    EXPECT_FALSE(blocks.done());
    const auto last = blocks.next();
    EXPECT_EQ(last.status, 128);
    EXPECT_EQ(last.offset, 6U);
    EXPECT_EQ(last.data.size(), 1U);
    EXPECT_EQ(last.checksum, 'a' + 'b' + 'c' + 'd' + 'e' + 'f' + 'g');
    EXPECT_TRUE(blocks.done());
}

TEST(VymprinterFileBlocks, EmptyFileIsOneEmptyLastBlock)
{
    FileBlocks blocks("", 29, {});
    const auto block = blocks.next();
    EXPECT_EQ(block.status, 128);
    EXPECT_TRUE(block.data.empty());
    EXPECT_TRUE(blocks.done());
}

TEST(VymprinterFileBlocks, EndlessFileNeverEnds)
{
    for (const auto kind : {FaultKind::endless, FaultKind::endlessEmpty}) {
        FaultSet faults;
        faults.add(kind);
        FileBlocks blocks("abc", 30, faults);
        for (int i = 0; i < 1000; ++i) {
            const auto block = blocks.next();
            ASSERT_EQ(block.status, 0);
            ASSERT_EQ(block.data.empty(), kind == FaultKind::endlessEmpty);
            ASSERT_FALSE(blocks.done());
        }
    }
}

TEST(VymprinterFileBlocks, OffsetWrapRunsPastThirtyTwoBits)
{
    FaultSet faults;
    faults.add(FaultKind::offsetWrap);
    FileBlocks blocks("abcdefg", 28 + 4, faults);
    const auto block = blocks.next();
    EXPECT_GT(std::uint64_t{block.offset} + block.data.size(), 0xFFFFFFFFU);
}

TEST(VymprinterFileBlocks, TargetInfoIsChangedRowByRow)
{
    const struct {
        const char* fault;
        const char* text;
    } rows[] = {
        {"wrong-model", "TGMNAME \"Another model\"\r\nMAXPACKET 9\r\n"},
        {"no-model", "MAXPACKET 9\r\n"},
        {"no-maxpacket", "TGMNAME M\r\n"},
        {"bad-maxpacket=-5", "MAXPACKET -5\r\nTGMNAME M\r\n"},
    };
    for (const auto& row : rows) {
        FaultPlan plan({parsed(row.fault)});
        EXPECT_EQ(faultyTargetInfo("TGMNAME M\r\nMAXPACKET 9\r\n", plan.atRequest(Stage::getFile),
                                   plan.value(FaultKind::badMaxPacket)),
                  row.text);
    }
}

} // namespace
