// SPDX-License-Identifier: MIT
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnBase.h"
#include "VYM/vymUtil.h"
#include "tests/support/FailingMemory.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <thread>

namespace {

// The smallest possible transport, with public access to the members that transports share.
class Transport : public DevConnBase {
public:
    long Connect(const char* /*name*/, const char* /*port*/, unsigned short /*tcpPort*/) override
    {
        m_connected = true;
        return conn::kSuccess;
    }
    long SendRecvData(unsigned char* /*send*/, unsigned long /*sendLength*/,
                      unsigned char** /*reply*/, unsigned long* /*replyLength*/) override
    {
        return conn::kNotSupported;
    }
    long GetModelName(char** /*model*/, unsigned long* /*length*/) override
    {
        return conn::kNotSupported;
    }
    long SetTimeout(unsigned long milliseconds) override { return storeTimeout(milliseconds); }
    long Disconnect() override { return conn::kSuccess; }

    using DevConnBase::exchange;
    using DevConnBase::m_connected;
    using DevConnBase::m_recvPacketSize;
    using DevConnBase::m_timeout;

    void* handOut()
    {
        void* block = AllocMem(100);
        EXPECT_TRUE(addMemList(block));
        return block;
    }
};

// A link whose printer answers each packet with a header.
class AnsweringStream : public PacketStream {
public:
    bool WritePort(const unsigned char* /*buffer*/, unsigned long length, unsigned long* sent,
                   unsigned long /*timeoutMs*/) override
    {
        ++m_packets;
        *sent = length;
        return true;
    }
    bool ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                  unsigned long /*timeoutMs*/) override
    {
        std::fill_n(buffer, length, static_cast<unsigned char>(0));
        *received = length;
        return true;
    }
    [[nodiscard]] bool peerClosed() const override { return false; }
    [[nodiscard]] bool awaitsReply(const unsigned char* /*packet*/,
                                   unsigned long /*length*/) const override
    {
        return true;
    }

    int m_packets = 0;
};

} // namespace

TEST(Transport, BeginsUnconnectedWithoutATimeOut)
{
    const Transport transport;
    EXPECT_FALSE(transport.m_connected);
    EXPECT_EQ(transport.m_timeout, 0U);
    EXPECT_EQ(transport.m_recvPacketSize, 4096U);
}

TEST(Transport, TakesAnyReceivePacketSize)
{
    Transport transport;
    for (unsigned long size : {0UL, 1UL, 8UL, 0x80000000UL, ~0UL}) {
        EXPECT_EQ(transport.SetRecvPacketSize(size), 0);
        EXPECT_EQ(transport.m_recvPacketSize, size);
    }
}

TEST(Transport, TakesATimeOutOnlyWhileConnected)
{
    Transport transport;
    EXPECT_EQ(transport.SetTimeout(0), -2) << "before anything else";
    EXPECT_EQ(transport.SetTimeout(5), -9);
    transport.Connect(nullptr, "", 0);
    EXPECT_EQ(transport.SetTimeout(0), -2);
    EXPECT_EQ(transport.SetTimeout(5), 0);
    EXPECT_EQ(transport.m_timeout, 5U);
    EXPECT_EQ(transport.SetTimeout(0), -2);
    EXPECT_EQ(transport.m_timeout, 5U);
}

TEST(HandedOutBlock, IsGivenBackOnce)
{
    Transport transport;
    void* first = transport.handOut();
    void* second = transport.handOut();
    EXPECT_EQ(transport.DisposeData(first), 0);
    EXPECT_EQ(transport.DisposeData(first), -6);
    EXPECT_EQ(transport.DisposeData(second), 0);
    EXPECT_EQ(transport.DisposeData(second), -6);
}

TEST(HandedOutBlock, GoesBackToTheConnectionThatGaveIt)
{
    Transport transport;
    Transport other;
    char own = 0;
    auto* block = static_cast<char*>(transport.handOut());
    EXPECT_EQ(other.DisposeData(block), -6);
    EXPECT_EQ(transport.DisposeData(&own), -6);
    EXPECT_EQ(transport.DisposeData(block + 1), -6) << "the middle of a block is no block";
    EXPECT_EQ(transport.DisposeData(nullptr), -6);
    EXPECT_EQ(transport.DisposeData(block), 0);
}

TEST(HandedOutBlock, IsFreedWithTheConnection)
{
    auto transport = std::make_unique<Transport>();
    for (int i = 0; i < 5; ++i)
        transport->handOut(); // a leak checker reports what remains
    transport.reset();
}

TEST(HandedOutBlock, IsNeverNull)
{
    Transport transport;
    EXPECT_FALSE(transport.addMemList(nullptr));
    EXPECT_EQ(transport.DisposeData(nullptr), -6);
}

TEST(HandedOutBlock, IsRefusedWhereMemoryCannotRememberIt)
{
    Transport transport;
    char block = 0;
    {
        const MemoryShortage shortage(0);
        EXPECT_FALSE(transport.addMemList(&block));
    }
    EXPECT_EQ(transport.DisposeData(&block), -6);
}

TEST(HandedOutBlock, HasItsPlaceBeforeAnythingIsSent)
{
    Transport transport;
    transport.Connect(nullptr, "", 0);
    AnsweringStream printer;
    std::array<unsigned char, 8> packet{};
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    const auto exchange = [&] {
        return transport.exchange(printer, 1, packet.data(), packet.size(), &reply, &length);
    };
    {
        const MemoryShortage shortage(0);
        EXPECT_EQ(exchange(), conn::kOutOfMemory);
    }
    EXPECT_EQ(printer.m_packets, 0);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(transport.DisposeData(reply), 0);
    {
        const MemoryShortage shortage(0); // the place is still there, for the reply to "leave"
        EXPECT_EQ(exchange(), 0);
    }
    EXPECT_EQ(printer.m_packets, 2);
    EXPECT_EQ(length, 8U);
    EXPECT_EQ(transport.DisposeData(reply), 0);
}

TEST(HandedOutBlock, ComesBackFromAnyThread)
{
    constexpr int kRounds = 300;
    Transport transport;
    std::vector<void*> blocks;
    for (int i = 0; i < 2 * kRounds; ++i)
        blocks.push_back(transport.handOut());
    const auto giveBack = [&](std::size_t from) {
        for (std::size_t i = from; i < blocks.size(); i += 2)
            EXPECT_EQ(transport.DisposeData(blocks[i]), 0);
    };
    std::thread other(giveBack, 0);
    giveBack(1);
    other.join();
}
