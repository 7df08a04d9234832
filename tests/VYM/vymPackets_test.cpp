// SPDX-License-Identifier: MIT
#include "VYM/vymPackets.h"
#include "tests/support/Printer.h"

#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace {

template <class Record> std::string bytesOf(const Record& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

std::string padded(std::string name, std::size_t width = 32)
{
    name.resize(width, '\0');
    return name;
}

std::span<const unsigned char> view(const std::string& bytes)
{
    return {reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()};
}

using packets::FilePacket;
using printer::number;

TEST(vymPackets, RequestsAFileWith42Bytes)
{
    EXPECT_EQ(bytesOf(packets::getFile("TargetInfo.txt")),
              std::string("\0\0\x50\x01\0\0\0\x22\0\0", 10) + padded("TargetInfo.txt"));
}

TEST(vymPackets, EntersDownloadModeWith44BytesAndTheFlagAtTheEnd)
{
    const std::string head("\0\0\x51\x01\0\0\0\x24\0\0", 10);
    EXPECT_EQ(bytesOf(packets::enterDownload(false)), head + std::string(34, '\0'));
    EXPECT_EQ(bytesOf(packets::enterDownload(true)),
              head + std::string(33, '\0') + std::string("\x01"));
}

TEST(vymPackets, LeavesDownloadModeWith44BytesAllZeroAfterTheHeader)
{
    EXPECT_EQ(bytesOf(packets::exitDownload()),
              std::string("\0\0\x51\x02\0\0\0\x24", 8) + std::string(36, '\0'));
}

TEST(vymPackets, QueriesTheStatusByFirmwareNameWith42Bytes)
{
    EXPECT_EQ(bytesOf(packets::queryStatus("MAIN")),
              std::string("\0\0\x51\x03\0\0\0\x22\0\0", 10) + padded("MAIN"));
}

TEST(vymPackets, QueriesTheStatusInTheShortFormWith10Bytes)
{
    EXPECT_EQ(bytesOf(packets::queryStatusShort()), std::string("\0\0\x51\x03\0\0\0\x02\0\0", 10));
}

TEST(vymPackets, SendsAPieceOfAFileAfterA60ByteHead)
{
    const std::vector<unsigned char> data{1, 2, 0xFF};
    const auto head =
        packets::sendFile("MAIN", {packets::kData, 0x01020304, 0x0A0B0C0D, data.data(), 3});
    EXPECT_EQ(bytesOf(head),
              number(0, 2) + number(0x5002, 2) + number(55, 4) + number(0, 2) + padded("MAIN")
                  + number(0, 2) + number(0x01020304, 4) + number(0x0A0B0C0D, 4) + number(0x0102, 2)
                  + number(0, 2) + number(3, 4));
}

TEST(vymPackets, FillsLengthAndChecksumOfAFilePacketByItsKind)
{
    const std::vector<unsigned char> data(100, 2);
    const struct {
        const char* why;
        std::uint16_t kind;
        std::uint32_t start, end;
        const unsigned char* data;
        std::uint32_t length;
        std::uint32_t n, sum;
    } table[] = {
        {"a data piece", 0, 10, 1000, data.data(), 100, 100, 200},
        {"a data piece without data", 0, 0, 10, nullptr, 7, 7, 0},
        {"a data piece of length 0", 0, 0, 10, data.data(), 0, 0, 0},
        {"a last block with data", 129, 10, 60, data.data(), 1, 50, 100},
        {"an unpolled last block with data", 128, 0, 100, data.data(), 0, 100, 200},
        {"a last block whose end is its start", 128, 7, 7, data.data(), 5, 0, 0},
        {"a last block without data carries the running sum", 129, 9, 9, nullptr, 0x12345, 0,
         0x2345},
        {"an unpolled one too", 128, 9, 9, nullptr, 0xBEEF, 0, 0xBEEF},
        {"the head-only kind", 511, 0, 0, nullptr, 0, 0, 0},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        const auto bytes =
            bytesOf(packets::sendFile("M", {row.kind, row.start, row.end, row.data, row.length}));
        const FilePacket packet(view(bytes));
        EXPECT_EQ(bytes.substr(4, 4), number(row.n + 52, 4));
        EXPECT_EQ(packet.kind(), row.kind);
        EXPECT_EQ(packet.start(), row.start);
        EXPECT_EQ(packet.end(), row.end);
        EXPECT_EQ(packet.sum(), row.sum);
        EXPECT_EQ(packet.dataLength(), row.n);
    }
}

// A file packet of this length, command and kind.
std::string filePacket(std::size_t length, unsigned command, unsigned kind)
{
    auto packet =
        number(0x7F7F, 2) + number(command, 2) + std::string(38, '\x7F') + number(kind, 2);
    packet.resize(length, '\x7F');
    return packet;
}

TEST(FilePacket, IsKnownByLengthCommandAndKind)
{
    const struct {
        std::size_t length;
        unsigned command, kind;
        bool data, closing;
    } table[] = {
        {60, 0x5002, 0, true, false},      {4096, 0x5002, 0, true, false},
        {59, 0x5002, 0, false, false},     {60, 0x5001, 0, false, false},
        {60, 0x0250, 0, false, false},     {60, 0x5002, 1, false, false},
        {60, 0x5002, 0x100, false, false}, {60, 0x5002, 0x80, false, true},
        {60, 0x5002, 0x81, false, true},   {60, 0x5002, 0x82, false, false},
        {59, 0x5002, 0x81, false, false},  {60, 0x5001, 0x81, false, false},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(::testing::Message() << row.length << ' ' << row.command << ' ' << row.kind);
        const auto bytes = filePacket(row.length, row.command, row.kind);
        EXPECT_EQ(FilePacket(view(bytes)).isData(), row.data);
        EXPECT_EQ(FilePacket(view(bytes)).isClosing(), row.closing);
    }
    EXPECT_FALSE(FilePacket(nullptr, 60).isFile());
}

TEST(FilePacket, ReadsNoFieldBeyondItsEnd)
{
    const auto whole = bytesOf(
        packets::sendFile("MAIN", {packets::kData, 0x01020304, 0x0A0B0C0D, nullptr, 7, 0x1234}));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        const auto cut = whole.substr(0, length);
        const FilePacket packet(view(cut));
        EXPECT_EQ(packet.isFile(), length >= 44);
        EXPECT_EQ(packet.showsProgress(), length >= 52);
        EXPECT_EQ(packet.start(), length >= 48 ? 0x01020304U : 0U);
        EXPECT_EQ(packet.end(), length >= 52 ? 0x0A0B0C0DU : 0U);
        EXPECT_EQ(packet.dataLength(), 0U);
        EXPECT_TRUE(packet.data().empty());
    }
}

TEST(vymPackets, LeavesTheNameFieldEmptyForANameOf32OrMoreCharacters)
{
    const std::string fits(31, 'x');
    const std::string tooLong(32, 'x');
    EXPECT_EQ(bytesOf(packets::getFile(fits.c_str())).substr(10), fits + '\0');
    EXPECT_EQ(bytesOf(packets::getFile(tooLong.c_str())).substr(10), std::string(32, '\0'));
}

TEST(vymPackets, SumsAnyNumberOfBytes)
{
    std::vector<unsigned char> bytes;
    unsigned sum = 0;
    for (unsigned i = 0; i < 1000; ++i) {
        ASSERT_EQ(packets::byteSum(bytes), sum % 65536) << i << " bytes";
        bytes.push_back(static_cast<unsigned char>(255 - i * 7 % 256));
        sum += bytes.back();
    }
}

TEST(vymPackets, WrapsTheByteSumAt16Bits)
{
    EXPECT_EQ(packets::byteSum(std::vector<unsigned char>(300, 0xFF)), 0x2AD4);
    EXPECT_EQ(packets::byteSum({}), 0);
}

TEST(vymPackets, AcceptsAReplyOnlyWhenItIsWholeAndOfTheExpectedCommand)
{
    const auto whole = printer::statusReply(0x5101, 0x80);
    const struct {
        const char* why;
        std::string reply;
        bool accepted;
    } table[] = {
        {"a whole reply", whole, true},
        {"a header alone", printer::reply(0x5101, ""), true},
        {"another command", printer::statusReply(0x5102, 0x80), false},
        {"seven bytes", whole.substr(0, 7), false},
        {"nothing", "", false},
        {"a body cut short", whole.substr(0, 11), false},
        {"a byte too many", whole + 'x', false},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(packets::isReplyTo(packets::kEnterDownload, view(row.reply)), row.accepted);
    }
}

TEST(vymPackets, KnowsThePacketsOfACommand)
{
    const auto enter = packets::enterDownload(false);
    const std::string bytes(reinterpret_cast<const char*>(&enter), sizeof enter);
    EXPECT_TRUE(packets::isOf(packets::kEnterDownload, view(bytes)));
    EXPECT_FALSE(packets::isOf(packets::kExitDownload, view(bytes)));
    EXPECT_TRUE(packets::isOf(packets::kEnterDownload, view(bytes.substr(0, 8))));
    EXPECT_FALSE(packets::isOf(packets::kEnterDownload, view(bytes.substr(0, 7))));
    EXPECT_FALSE(packets::isOf(packets::kEnterDownload, {}));
}

TEST(vymPackets, ReadsNoFieldFromAReplyThatIsTooShortForIt)
{
    const auto progress = printer::progress(0x81, 500, 20);
    for (std::size_t length = 0; length < progress.size(); ++length) {
        SCOPED_TRACE(length);
        const auto cut = progress.substr(0, length);
        EXPECT_EQ(packets::statusOf(view(cut)).has_value(), length >= 12);
        EXPECT_FALSE(packets::countsOf(view(cut)).has_value());
    }
    const auto counts = packets::countsOf(view(progress));
    ASSERT_TRUE(counts.has_value());
    EXPECT_EQ(counts->total, 500U);
    EXPECT_EQ(counts->done, 20U);
}

TEST(vymPackets, ReadsAFileBlockOnlyWhenItsDataHaveReallyArrived)
{
    auto bytes = printer::fileBlock({0x81, 16, 100, 0xABCD, "hello"});
    const auto block = packets::fileBlockOf(view(bytes));
    ASSERT_TRUE(block.has_value());
    EXPECT_EQ(block->status, 0x81);
    EXPECT_EQ(block->offset, 16U);
    EXPECT_EQ(block->total, 100U);
    EXPECT_EQ(block->checkSum, 0xABCD);
    EXPECT_EQ(std::string(block->data.begin(), block->data.end()), "hello");
    for (const std::uint32_t lie : {6U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFE4U, 0xFFFFFFFFU}) {
        bytes.replace(24, 4, number(lie, 4));
        EXPECT_FALSE(packets::fileBlockOf(view(bytes)).has_value()) << lie;
    }
    EXPECT_FALSE(packets::fileBlockOf(view(bytes.substr(0, 27))).has_value());
}

} // namespace
