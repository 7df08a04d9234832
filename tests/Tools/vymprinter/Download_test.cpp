// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Download.h"
#include "tests/Tools/vymprinter/desk.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterDownload, LastBlockMayCarryTheLastPiece)
{
    Desk desk;
    const requests::Packet file = {1, 2, 3, 4, 5};
    desk.entered();
    EXPECT_EQ(desk.send(requests::piece(0, 5, {1, 2, 3})), sendReply(128));
    EXPECT_EQ(desk.send(requests::sendFile(128, 3, 5, {4, 5}, 9)), sendReply(128));
    EXPECT_EQ(desk.record.stored["MAIN.BIN"], file);
    EXPECT_EQ(desk.send(requests::shortQuery()), encodeStatusReply(128, 5, 5));
}

TEST(VymprinterDownload, EmptyFirmwareIsALastBlockWithChecksumZero)
{
    Desk desk;
    EXPECT_EQ(desk.entered().send(requests::last(128, {})), sendReply(128));
    EXPECT_EQ(desk.record.stored.count("MAIN.BIN"), 1U);
}

TEST(VymprinterDownload, PacketsOutOfOrderAreRefusedWithAReason)
{
    const struct {
        const char* verdict;
        std::vector<requests::Packet> packets; // the last one is refused
        std::uint16_t status;
    } rows[] = {
        {"wrong checksum", {requests::sendFile(0, 0, 3, {1, 2, 3}, 7)}, 0x0804},
        {"wrong checksum",
         {requests::piece(0, 2, {1, 2}), requests::sendFile(129, 2, 2, {}, 4)},
         0x0804},
        {"wrong checksum", {requests::sendFile(129, 0, 2, {1, 2}, 4)}, 0x0804},
        {"a firmware does not begin at 0", {requests::piece(1, 3, {1, 2})}, 0x0803},
        {"does not begin where the last piece ended",
         {requests::piece(0, 9, {1, 2}), requests::piece(3, 9, {1})},
         0x0803},
        {"does not begin where the last piece ended",
         {requests::piece(0, 9, {1, 2}), requests::piece(0, 9, {1, 2})},
         0x0803},
        {"the end changed within a firmware",
         {requests::piece(0, 9, {1, 2}), requests::piece(2, 8, {1})},
         0x0803},
        {"runs past the end", {requests::piece(0, 1, {1, 2})}, 0x0803},
        {"the last block does not reach the end",
         {requests::piece(0, 9, {1, 2}), requests::sendFile(128, 2, 9, {1}, 1)},
         0x0803},
        {"a piece without data", {requests::piece(0, 9, {})}, 0x0803},
        {"unknown block kind", {requests::sendFile(1, 0, 1, {1}, 1)}, 0x0803},
        {"header length and data count differ",
         {[] {
             auto packet = requests::piece(0, 9, {1, 2});
             packet[59] = 1;
             return packet;
         }()},
         0x0803},
        {"no such file", {requests::getFile("OTHER.TXT")}, 0x0803},
        {"no firmware was sent", {requests::query("MAIN.BIN")}, 0x0803},
        {"not the firmware last sent", {requests::last(129, {}), requests::query("X")}, 0x0803},
        {"unknown command", {requests::blank(0x5104, 44)}, 0x0803},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.verdict);
        Desk desk;
        desk.entered();
        Bytes reply;
        for (const auto& packet : row.packets)
            reply = desk.send(packet);
        EXPECT_EQ(reply, simple(get16(row.packets.back(), 2), row.status));
        EXPECT_EQ(desk.lastVerdict(), row.verdict);
    }
}

TEST(VymprinterDownload, ChangedNameWithinAFirmwareIsRefused)
{
    Desk desk;
    auto second = requests::piece(2, 9, {1});
    second[10] = 'X';
    desk.entered().send(requests::piece(0, 9, {1, 2}));
    EXPECT_EQ(desk.send(second), sendReply(0x0803));
    EXPECT_EQ(desk.record.abandoned, 1);
}

TEST(VymprinterDownload, AfterARefusalTheFirmwareCanBeginAgain)
{
    Desk desk;
    desk.entered().send(requests::sendFile(0, 0, 3, {1, 2, 3}, 7));
    for (const auto& piece : requests::pieces({1, 2, 3}, 2))
        desk.send(piece);
    EXPECT_EQ(desk.record.stored["MAIN.BIN"], (Bytes{1, 2, 3}));
}

TEST(VymprinterDownload, FirmwareThatCannotBeStoredIsRefused)
{
    Desk desk;
    desk.record.full = true;
    EXPECT_EQ(desk.entered().send(requests::piece(0, 9, {1, 2})), sendReply(0x0803));
    EXPECT_EQ(desk.lastVerdict(), "could not be stored");
}

TEST(VymprinterDownload, FirmwareThatCannotBeKeptAtTheEndIsRefused)
{
    Desk desk;
    desk.record.unwritable = true;
    EXPECT_EQ(desk.entered().send(requests::last(129, {})), sendReply(0x0803));
    EXPECT_EQ(desk.send(requests::shortQuery()), simple(0x5103, 0x0803));
}

} // namespace
