#include "Tools/vymprinter/FileBlocks.h"
#include "Tools/vymprinter/PrinterModel.h"
#include "Tools/vymprinter/PrinterWire.h"
#include "Tools/vymprinter/RequestBuffer.h"
#include "tests/Tools/vymprinter_requests.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterWire, SimpleReplyIsTwelveBytesWithTheStatusAtTen)
{
    EXPECT_EQ(encodeSimpleReply(command::kEnter, status::kDone),
              (Bytes{0, 0, 0x51, 0x01, 0, 0, 0, 4, 0, 0, 0, 0x80}));
    EXPECT_EQ(encodeSimpleReply(command::kSendFile, status::kChecksum),
              (Bytes{0, 0, 0x50, 0x02, 0, 0, 0, 4, 0, 0, 0x08, 0x04}));
}

TEST(VymprinterWire, StatusReplyCarriesTotalAndWritten)
{
    EXPECT_EQ(encodeStatusReply(status::kWriting, 0x01020304, 0x05060708),
              (Bytes{0, 0, 0x51, 0x03, 0, 0, 0, 12, 0, 0, 0, 0x81, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(VymprinterWire, FileBlockCarriesItsDataAfterTwentyEightBytes)
{
    const Bytes data = {'a', 'b'};
    EXPECT_EQ(encodeFileBlock({status::kDone, 0x10, 0x12, 0xABCD, data}),
              (Bytes{0,    0, 0x50, 0x01, 0,    0,    0,    22, 0, 0, 0, 0x80, 0, 0,   0,
                     0x10, 0, 0,    0,    0x12, 0xAB, 0xCD, 0,  0, 0, 0, 0,    2, 'a', 'b'}));
}

TEST(VymprinterWire, ByteSumWrapsAtSixteenBits)
{
    EXPECT_EQ(byteSum(Bytes(300, 0xFF)), 0x2AD4);
    EXPECT_EQ(byteSum(Bytes{2}, 0xFFFF), 1);
    EXPECT_EQ(byteSum({}), 0);
}

TEST(VymprinterWire, SendFileRequestIsTakenApart)
{
    const auto packet = requests::sendFile(129, 0x01000002, 0x01000005, {7, 8, 9}, 24);
    const auto request = decodeRequest(packet);
    EXPECT_EQ(request.defect, "");
    EXPECT_EQ(request.command, command::kSendFile);
    EXPECT_EQ(request.name, "MAIN.BIN");
    EXPECT_EQ(request.kind, blockKind::kLastPolled);
    EXPECT_EQ(request.start, 0x01000002U);
    EXPECT_EQ(request.end, 0x01000005U);
    EXPECT_EQ(request.checksum, 24);
    EXPECT_EQ(request.count, 3U);
    EXPECT_EQ(Bytes(request.data.begin(), request.data.end()), (Bytes{7, 8, 9}));
}

requests::Packet changed(requests::Packet packet, std::size_t at, std::uint8_t value)
{
    packet.at(at) = value;
    return packet;
}

TEST(VymprinterWire, EveryRequestOfAnUpdateIsWellFormed)
{
    for (const auto& packet :
         {requests::enter(), requests::exit(), requests::getFile(), requests::query("MAIN.BIN"),
          requests::shortQuery(), requests::piece(0, 5, {1, 2}), requests::last(128, {})})
        EXPECT_EQ(decodeRequest(packet).defect, "") << packet[2] << ' ' << int{packet[3]};
}

TEST(VymprinterWire, EveryDefectOfFormIsSeen)
{
    const auto longName = std::string(32, 'N');
    const struct {
        const char* why;
        requests::Packet packet;
    } rows[] = {
        {"reserved word in the header", changed(requests::enter(), 1, 1)},
        {"reserved word behind the header", changed(requests::getFile(), 9, 1)},
        {"name in an enter request", changed(requests::enter(), 10, 'x')},
        {"flag 2 in an enter request", changed(requests::enter(), 43, 2)},
        {"flag in an exit request", changed(requests::exit(), 43, 1)},
        {"enter of 46 bytes", requests::blank(0x5101, 46)},
        {"query of 12 bytes", requests::blank(0x5103, 12)},
        {"get file of 10 bytes", requests::blank(0x5001, 10)},
        {"send file of 59 bytes", requests::blank(0x5002, 59)},
        {"a header alone", requests::blank(0x5101, 8)},
        {"name without end", requests::getFile(longName)},
        {"bytes behind the name", changed(requests::getFile("A"), 20, 'x')},
        {"more data than announced", changed(requests::piece(0, 5, {1, 2}), 59, 1)},
        {"less data than announced", changed(requests::piece(0, 5, {1, 2}), 59, 3)},
        {"word before the data count", changed(requests::piece(0, 5, {1, 2}), 54, 1)},
        {"unknown command", requests::blank(0x5104, 44)},
    };
    for (const auto& row : rows)
        EXPECT_NE(decodeRequest(row.packet).defect, "") << row.why;
}

TEST(VymprinterWire, NamesFromTheWireAreShownSafely)
{
    EXPECT_EQ(printable("A b\x1b[2J\xff"), "A_b_[2J_");
    EXPECT_EQ(printable(""), "-");
}

TEST(VymprinterBuffer, PacketsComeOutWholeHoweverTheyArrive)
{
    requests::Packet stream;
    for (const auto& packet : {requests::enter(), requests::shortQuery(), requests::getFile()})
        stream.insert(stream.end(), packet.begin(), packet.end());
    for (std::size_t step = 1; step <= stream.size(); ++step) {
        RequestBuffer buffer(1000);
        std::vector<Bytes> packets;
        for (std::size_t at = 0; at < stream.size(); at += step) {
            buffer.append(ByteView(stream).subspan(at, std::min(step, stream.size() - at)));
            for (; buffer.frontIsWhole(); buffer.drop())
                packets.emplace_back(buffer.front().begin(), buffer.front().end());
        }
        EXPECT_EQ(packets,
                  (std::vector{requests::enter(), requests::shortQuery(), requests::getFile()}))
            << step;
    }
}

TEST(VymprinterBuffer, AbsurdLengthIsSeenAsSoonAsTheHeaderIsThere)
{
    RequestBuffer buffer(100);
    buffer.append(Bytes{0, 0, 0x50, 0x02, 0xFF, 0xFF, 0xFF});
    EXPECT_FALSE(buffer.frontIsAbsurd());
    buffer.append(Bytes{0xFF});
    EXPECT_TRUE(buffer.frontIsAbsurd());
    EXPECT_FALSE(buffer.frontIsWhole());
}

TEST(VymprinterBuffer, LongestPacketIsNotAbsurdYet)
{
    RequestBuffer buffer(100);
    buffer.append(requests::blank(0x5002, 100));
    EXPECT_FALSE(buffer.frontIsAbsurd());
    EXPECT_TRUE(buffer.frontIsWhole());
}

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

TEST(VymprinterBlocks, FileIsCutAndItsLastBlockHasTheSumOfAll)
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

TEST(VymprinterBlocks, EmptyFileIsOneEmptyLastBlock)
{
    FileBlocks blocks("", 29, {});
    const auto block = blocks.next();
    EXPECT_EQ(block.status, 128);
    EXPECT_TRUE(block.data.empty());
    EXPECT_TRUE(blocks.done());
}

TEST(VymprinterBlocks, EndlessFileNeverEnds)
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

TEST(VymprinterBlocks, OffsetWrapRunsPastThirtyTwoBits)
{
    FaultSet faults;
    faults.add(FaultKind::offsetWrap);
    FileBlocks blocks("abcdefg", 28 + 4, faults);
    const auto block = blocks.next();
    EXPECT_GT(std::uint64_t{block.offset} + block.data.size(), 0xFFFFFFFFU);
}

} // namespace
