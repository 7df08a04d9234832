// SPDX-License-Identifier: MIT
#include "tests/DevConn/UsbFixture.h"
#include "tests/support/LoopbackPeer.h"

namespace {

using Sizes = std::vector<unsigned long>;

// A file packet of that kind, with its progress.
std::string filePacket(unsigned kind, std::uint32_t sent, std::uint32_t total,
                       std::size_t length = 60, unsigned command = 0x5002)
{
    std::string packet(60, '\x7F');
    const auto put = [&](std::size_t at, std::uint32_t value, int bytes) {
        for (int i = bytes - 1; i >= 0; --i)
            packet[at++] = static_cast<char>(value >> (8 * i));
    };
    put(2, command, 2);
    put(42, kind, 2);
    put(44, sent, 4);
    put(48, total, 4);
    packet.resize(length, '\0');
    return packet;
}

const unsigned char* bytesOf(const std::string& packet)
{
    return reinterpret_cast<const unsigned char*>(packet.data());
}

class UsbExchange : public UsbTransport {
protected:
    UsbExchange() { EXPECT_EQ(connect(), 0); }
    long exchange(std::string packet)
    {
        return exchange(reinterpret_cast<unsigned char*>(packet.data()), packet.size());
    }
    long exchange(unsigned char* packet, unsigned long length)
    {
        unsigned char* block = nullptr;
        unsigned long replyLength = 99;
        const auto result = usb.SendRecvData(packet, length, &block, &replyLength);
        reply = block != nullptr ? std::string(reinterpret_cast<char*>(block), replyLength) : "";
        EXPECT_TRUE(block != nullptr || replyLength == 0);
        if (block != nullptr) {
            EXPECT_EQ(usb.DisposeData(block), 0);
        }
        return result;
    }
    bool waitsFor(const std::string& packet)
    {
        return usb.IsSendFileCheck(bytesOf(packet), packet.size());
    }
    std::string reply;
};

} // namespace

TEST_F(UsbExchange, SendsThePacketAndGivesTheWholeReply)
{
    printer.sends(replyOf("hello"));
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, replyOf("hello"));
    EXPECT_EQ(printer.written, std::vector<std::string>{"packet"});
}

TEST_F(UsbExchange, CollectsALongReplyOutOfManyReads)
{
    std::string body(3000, 'b');
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(i * 7);
    const auto whole = replyOf(body);
    for (std::size_t at = 0; at < whole.size(); at += 64)
        printer.sends(whole.substr(at, 64), at % 3 == 0 ? 3 : 0);
    EXPECT_EQ(usb.SetTimeout(10000), 0);
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, whole);
}

TEST_F(UsbExchange, KeepsTheNextReplyForTheNextPacket)
{
    printer.sends(replyOf("one") + replyOf("two"));
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, replyOf("one"));
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, replyOf("two"));
}

TEST_F(UsbExchange, ChecksItsArguments)
{
    unsigned char byte = 0;
    unsigned char* block = nullptr;
    unsigned long length = 0;
    EXPECT_EQ(usb.SendRecvData(nullptr, 1, &block, &length), conn::kInvalidArgument);
    EXPECT_EQ(usb.SendRecvData(&byte, 1, nullptr, &length), conn::kInvalidArgument);
    EXPECT_EQ(usb.SendRecvData(&byte, 1, &block, nullptr), conn::kInvalidArgument);
    EXPECT_EQ(usb.Disconnect(), 0);
    EXPECT_EQ(usb.SendRecvData(&byte, 1, &block, &length), conn::kNotConnected);
}

TEST_F(UsbExchange, GivesAWriteAtLeastHalfASecondWhichIsNoWholeOne)
{
    printer.sends(replyOf("")).sends(replyOf(""));
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(printer.waits.front(), 0U);
    EXPECT_EQ(usb.SetTimeout(2000), 0);
    printer.waits.clear();
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(printer.waits.front(), 2U);
}

TEST_F(UsbExchange, EndsWithoutAReplyWhenItsTimeIsOver)
{
    EXPECT_EQ(usb.SetTimeout(1000), 0);
    const auto start = tickMilliseconds();
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, "");
    EXPECT_EQ(tickMilliseconds() - start, 1000U);
    EXPECT_EQ(printer.readSizes, Sizes{512}) << "one read, outstanding all the while";
}

TEST_F(UsbExchange, WithoutAPacketWaitsForAReplyLikeAnyOther)
{
    EXPECT_EQ(usb.SetTimeout(1000), 0);
    printer.sends(replyOf("late"), 500);
    EXPECT_EQ(exchange(nullptr, 0), 0);
    EXPECT_EQ(reply, replyOf("late"));
    EXPECT_TRUE(printer.written.empty());
}

TEST_F(UsbExchange, FailsWhereThePrinterIsLostInMidTransfer)
{
    printer.writes = {ScriptedPrinter::Write::fails};
    EXPECT_EQ(exchange("packet"), conn::kSendFailed);
    printer.writes = {ScriptedPrinter::Write::hangs};
    EXPECT_EQ(exchange("packet"), conn::kSendFailed);
    printer.isLost();
    EXPECT_EQ(exchange("packet"), conn::kReceiveFailed) << "instead of a header";
    printer.sends("1234567");
    EXPECT_EQ(exchange("packet"), conn::kReceiveFailed) << "a header cut short";
    printer.sends(replyHeader(100) + "some").isLost();
    EXPECT_EQ(exchange("packet"), conn::kReceiveFailed) << "inside a body";
}

TEST_F(UsbExchange, KeepsNoMoreOfAReplyThanThePacketSize)
{
    EXPECT_EQ(usb.SetTimeout(1000), 0);
    EXPECT_EQ(usb.SetRecvPacketSize(16), 0);
    printer.sends(replyOf(std::string(3000, 'x')) + replyOf("next"));
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, replyHeader(3000) + std::string(8, 'x'));
    EXPECT_EQ(exchange("packet"), 0);
    EXPECT_EQ(reply, replyOf("next"));
    printer.sends(replyHeader(0xFFFFFFFF) + "rest");
    EXPECT_EQ(exchange("packet"), 0) << "4 GiB are announced";
    EXPECT_EQ(reply, replyHeader(0xFFFFFFFF) + "rest");
}

TEST_F(UsbExchange, PacesUnconfirmedFileDataByItself)
{
    printer.sends(replyOf("ack"));
    const auto start = tickMilliseconds();
    EXPECT_EQ(exchange(filePacket(0, 5, 100)), 0);
    EXPECT_EQ(reply, "");
    EXPECT_TRUE(printer.readSizes.empty()) << "nothing is read";
    EXPECT_EQ(host.time.pauses(), Sizes{20});
    EXPECT_EQ(tickMilliseconds() - start, 20U);
}

TEST_F(UsbExchange, ReadsTheConfirmationOfATenthOnce)
{
    printer.sends(replyOf("ack"));
    EXPECT_EQ(exchange(filePacket(0, 10, 100)), 0);
    EXPECT_EQ(reply, replyOf("ack"));
    EXPECT_TRUE(host.time.pauses().empty());
    EXPECT_EQ(exchange(filePacket(0, 20, 100)), 0);
    EXPECT_EQ(reply, "") << "one look, then the same question again";
    EXPECT_EQ(host.time.pauses(), (Sizes{1, 20}));
}

TEST_F(UsbExchange, AwaitsTheReplyToTheClosingPackets)
{
    EXPECT_EQ(usb.SetTimeout(1000), 0);
    for (const unsigned kind : {0x80U, 0x81U, 1U}) {
        printer.sends(replyOf("ok"), 200);
        EXPECT_EQ(exchange(filePacket(kind, 0, 100)), 0);
        EXPECT_EQ(reply, replyOf("ok"));
    }
}

TEST_F(UsbExchange, WaitsForFileDataOnlyAtEachNewTenth)
{
    const struct {
        const char* why;
        std::uint32_t sent, total;
        bool waits;
    } rows[] = {
        {"0 percent, as it began", 0, 1000, false},
        {"5 percent", 50, 1000, false},
        {"10 percent", 100, 1000, true},
        {"still 10", 100, 1000, false},
        {"still 10, a little more sent", 109, 1000, false},
        {"11", 110, 1000, false},
        {"10 again", 100, 1000, true},
        {"50", 500, 1000, true},
        {"99", 999, 1000, false},
        {"100", 1000, 1000, true},
        {"0 percent of the next file", 0, 1000, true},
        {"a total of 0 counts as 0 percent", 500, 0, false},
        {"more than the total", 2000, 1000, true},
        {"nothing and nothing", 0, 0, true},
        {"what overflows 32 bits is gone", 42949673, 10, false},
        {"and leaves 40 percent here", 42949677, 10, true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(waitsFor(filePacket(0, row.sent, row.total)), row.waits) << row.why;
}

TEST_F(UsbExchange, WaitsForEveryPacketThatIsNoFileData)
{
    EXPECT_FALSE(usb.IsSendFileCheck(nullptr, 0));
    EXPECT_FALSE(usb.IsSendFileCheck(nullptr, 60));
    EXPECT_TRUE(waitsFor(filePacket(1, 0, 100)));
    EXPECT_TRUE(waitsFor(filePacket(0x80, 0, 100)));
    EXPECT_TRUE(waitsFor(filePacket(0, 0, 100, 60, 0x5001)));
    EXPECT_FALSE(waitsFor(filePacket(0, 0, 100, 52))) << "file data however short";
    for (std::size_t length = 0; length < 52; ++length)
        EXPECT_TRUE(waitsFor(filePacket(0, 0, 100, length))) << "no progress in it: " << length;
}

TEST_F(UsbExchange, KnowsThePacketsThatCloseAFile)
{
    const auto closes = [](const std::string& packet) {
        return DevConnUSB::IsSendFileCmdWithComplete(bytesOf(packet), packet.size());
    };
    EXPECT_TRUE(closes(filePacket(0x80, 0, 0)));
    EXPECT_TRUE(closes(filePacket(0x81, 0, 0)));
    EXPECT_TRUE(closes(filePacket(0x80, 0, 0, 100)));
    EXPECT_FALSE(closes(filePacket(0x82, 0, 0)));
    EXPECT_FALSE(closes(filePacket(0, 0, 0)));
    EXPECT_FALSE(closes(filePacket(0x8000, 0, 0)));
    EXPECT_FALSE(closes(filePacket(0x80, 0, 0, 60, 0x5001)));
    for (std::size_t length = 0; length < 60; ++length)
        EXPECT_FALSE(closes(filePacket(0x80, 0, 0, length)));
    EXPECT_FALSE(DevConnUSB::IsSendFileCmdWithComplete(nullptr, 60));
}
