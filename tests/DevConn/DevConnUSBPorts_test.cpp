// SPDX-License-Identifier: MIT
#include "tests/DevConn/UsbFixture.h"

namespace {

using Sizes = std::vector<unsigned long>;

class UsbWrite : public UsbTransport {
protected:
    UsbWrite() { EXPECT_EQ(connect(), 0); }
};

class UsbRead : public UsbTransport {
protected:
    UsbRead() { EXPECT_EQ(connect(), 0); }
};

} // namespace

TEST_F(UsbWrite, SendsThePacketWholeThroughTheBulkPipe)
{
    EXPECT_EQ(write("packet", 3000), 6);
    EXPECT_EQ(printer.written, std::vector<std::string>{"packet"});
    EXPECT_EQ(printer.usedPipes, std::vector<unsigned>{1});
    EXPECT_EQ(printer.waits, Sizes{3});
}

TEST_F(UsbWrite, WaitsWholeSeconds)
{
    for (const unsigned long milliseconds : {0UL, 500UL, 999UL, 1000UL, 1999UL, 5000UL})
        EXPECT_EQ(write("x", milliseconds), 1);
    EXPECT_EQ(printer.waits, (Sizes{0, 0, 0, 1, 1, 5}));
}

TEST_F(UsbWrite, AbortsATransferThatDoesNotEndInTime)
{
    printer.writes = {ScriptedPrinter::Write::hangs};
    EXPECT_EQ(write("x", 2500), -1);
    EXPECT_EQ(printer.aborted, std::vector<unsigned>{1});
    EXPECT_EQ(printer.waits, (Sizes{2, 0})) << "the end of the aborted one is taken";
    EXPECT_EQ(write("y"), 1) << "the next is not taken for it";
}

TEST_F(UsbWrite, FailsWhereThePrinterDoes)
{
    printer.writes = {ScriptedPrinter::Write::fails, ScriptedPrinter::Write::refused};
    EXPECT_EQ(write("x"), -1);
    EXPECT_EQ(write("x"), -1);
    EXPECT_EQ(printer.waits.size(), 1U) << "nothing to wait for where it did not start";
    EXPECT_TRUE(printer.aborted.empty());
    EXPECT_EQ(write("x"), 1);
}

TEST_F(UsbWrite, IsNotOverWhenOnlyTheOutstandingReadEnds)
{
    EXPECT_EQ(read(4), "");
    printer.sends("late");
    printer.readsEndFirst = true;
    EXPECT_EQ(write("x"), 1);
    EXPECT_EQ(read(4), "late");
    EXPECT_EQ(read(4), "");
    printer.sends("next");
    printer.writes = {ScriptedPrinter::Write::hangs};
    EXPECT_EQ(write("x"), -1) << "though something ended";
    EXPECT_EQ(printer.aborted, std::vector<unsigned>{1});
    EXPECT_EQ(read(4), "next");
}

TEST_F(UsbWrite, NeedsABufferACountAndAConnection)
{
    unsigned long sent = 7;
    const unsigned char byte = 0;
    EXPECT_FALSE(usb.WritePort(nullptr, 1, &sent, 10));
    EXPECT_FALSE(usb.WritePort(&byte, 1, nullptr, 10));
    EXPECT_EQ(usb.Disconnect(), 0);
    EXPECT_FALSE(usb.WritePort(&byte, 1, &sent, 10));
    EXPECT_EQ(sent, 0U);
}

TEST_F(UsbRead, RequestsMultiplesOf512AndKeepsTheSurplus)
{
    printer.sends("0123456789");
    EXPECT_EQ(read(8), "01234567");
    EXPECT_EQ(usb.GetCacheDataSize(), 2U);
    EXPECT_EQ(read(2), "89");
    EXPECT_EQ(printer.readSizes, Sizes{512}) << "the second came out of the cache";
    EXPECT_EQ(printer.usedPipes, std::vector<unsigned>{2});
}

TEST_F(UsbRead, RoundsTheShortfallUp)
{
    const struct {
        unsigned long length, asked;
    } rows[] = {{1, 512}, {511, 512}, {512, 512}, {513, 1024}, {1024, 1024}, {4088, 4096}};
    for (const auto& row : rows) {
        printer.readSizes.clear();
        printer.sends(std::string(row.length, 'x'));
        EXPECT_EQ(read(row.length).size(), row.length);
        EXPECT_EQ(printer.readSizes, Sizes{row.asked});
    }
}

TEST_F(UsbRead, GivesTheCachedBytesFirstAndRequestsTheRest)
{
    printer.sends("abcdefgh" + std::string(300, 'i')).sends(std::string(400, 'j'));
    EXPECT_EQ(read(8), "abcdefgh");
    printer.readSizes.clear();
    EXPECT_EQ(read(600), std::string(300, 'i') + std::string(300, 'j'));
    EXPECT_EQ(printer.readSizes, Sizes{512}) << "300 are missing";
    EXPECT_EQ(usb.GetCacheDataSize(), 100U);
}

TEST_F(UsbRead, GivesFewerBytesIfFewerArrive)
{
    printer.sends("abc").sends("");
    EXPECT_EQ(read(8), "abc");
    EXPECT_EQ(read(8), "") << "an empty packet is no error";
}

TEST_F(UsbRead, StaysOutstandingAcrossCalls)
{
    printer.sends("late", 4);
    EXPECT_EQ(read(4), "");
    EXPECT_EQ(read(4), "");
    EXPECT_EQ(read(4), "late");
    EXPECT_EQ(printer.readSizes, Sizes{512}) << "one read in all";
    EXPECT_TRUE(printer.aborted.empty());
}

TEST_F(UsbRead, GivesTheCachedBytesWhileTheRestIsOutstanding)
{
    printer.sends("abcd").sends("efgh", 2);
    EXPECT_EQ(read(2), "ab");
    EXPECT_EQ(read(6), "cd");
    EXPECT_EQ(read(4), "efgh");
}

TEST_F(UsbRead, ReturnsATransferThatEndedJustBeforeTheTimeOut)
{
    printer.sends("late", 1);
    EXPECT_EQ(read(4), "") << "the time was over";
    printer.waits.clear();
    EXPECT_EQ(read(4), "late");
    EXPECT_TRUE(printer.waits.empty()) << "it has ended already";
}

TEST_F(UsbRead, WaitsWholeSecondsAndLooksOnceMore)
{
    EXPECT_EQ(read(4, 2999), "");
    EXPECT_EQ(printer.waits, (Sizes{2, 0}));
    EXPECT_TRUE(host.time.pauses().empty());
    printer.waits.clear();
    EXPECT_EQ(read(4, 999), "");
    EXPECT_EQ(printer.waits, (Sizes{0, 0}));
    EXPECT_EQ(host.time.pauses(), Sizes{1}) << "or who asks again at once keeps a processor busy";
}

TEST_F(UsbRead, FailsWhereThePrinterIsLost)
{
    printer.isLost().isLost(3);
    EXPECT_EQ(read(4), "failed");
    EXPECT_EQ(read(4), "") << "lost while it is outstanding";
    EXPECT_EQ(read(4), "");
    EXPECT_EQ(read(4), "failed");
    printer.readsStart = false;
    EXPECT_EQ(read(4), "failed");
    printer.readsStart = true;
    printer.sends("back");
    EXPECT_EQ(read(4), "back");
}

TEST_F(UsbRead, IsNotOverrunByALengthThatAPrinterClaims)
{
    printer.reads.push_back({"abcd", 0, UsbStatus::ok, 0xFFFFFFFF});
    EXPECT_EQ(read(8).substr(0, 4), "abcd");
    EXPECT_EQ(usb.GetCacheDataSize(), 504U) << "what the read asked for, and no more";
}

TEST_F(UsbRead, KeepsOneCacheOfSurplusWhereTheNextCallWantsLess)
{
    printer.sends(std::string(8, 'a') + std::string(2000, 'b'), 2);
    EXPECT_EQ(read(2000), "");
    EXPECT_EQ(read(8), std::string(8, 'a'));
    EXPECT_EQ(usb.GetCacheDataSize(), 512U);
}

TEST_F(UsbRead, NeedsABufferACountAndAConnection)
{
    unsigned char byte = 0;
    unsigned long received = 7;
    EXPECT_FALSE(usb.ReadPort(nullptr, 1, &received, 10));
    EXPECT_FALSE(usb.ReadPort(&byte, 1, nullptr, 10));
    EXPECT_TRUE(usb.ReadPort(&byte, 0, &received, 10));
    EXPECT_EQ(received, 0U);
    EXPECT_TRUE(printer.readSizes.empty());
    EXPECT_EQ(usb.Disconnect(), 0);
    EXPECT_FALSE(usb.ReadPort(&byte, 1, &received, 10));
}

TEST_F(UsbRead, ServesItsCacheUnderTheNamesOfTheRoom)
{
    const unsigned char bytes[600] = {};
    EXPECT_EQ(usb.SetCacheData(bytes, 600), 512U);
    EXPECT_EQ(usb.GetCacheDataSize(), 512U);
    unsigned char taken[4];
    EXPECT_EQ(usb.GetCacheData(taken, 4), 4U);
    usb.CacheBuffClear();
    EXPECT_EQ(usb.GetCacheDataSize(), 0U);
}
