// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterWire.h"
#include "tests/Tools/vymprinter/requests.h"

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
        {"reserved word after the header", changed(requests::getFile(), 9, 1)},
        {"name in an enter request", changed(requests::enter(), 10, 'x')},
        {"flag 2 in an enter request", changed(requests::enter(), 43, 2)},
        {"flag in an exit request", changed(requests::exit(), 43, 1)},
        {"enter of 46 bytes", requests::blank(0x5101, 46)},
        {"query of 12 bytes", requests::blank(0x5103, 12)},
        {"get file of 10 bytes", requests::blank(0x5001, 10)},
        {"send file of 59 bytes", requests::blank(0x5002, 59)},
        {"a header alone", requests::blank(0x5101, 8)},
        {"name without end", requests::getFile(longName)},
        {"bytes after the name", changed(requests::getFile("A"), 20, 'x')},
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

} // namespace
