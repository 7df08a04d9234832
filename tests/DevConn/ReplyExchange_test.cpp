// SPDX-License-Identifier: MIT
#include "DevConn/ConnResult.h"
#include "DevConn/ReplyExchange.h"
#include "VYM/vymPackets.h"
#include "VYM/vymUtil.h"
#include "tests/support/LoopbackPeer.h"
#include "tests/support/ScriptedTime.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

// A link with scripted reads, one entry for each attempt: bytes, no bytes, or an error. After the
// last entry no bytes arrive. A read without bytes takes its whole time-out.
class ScriptedStream : public PacketStream {
public:
    explicit ScriptedStream(ScriptedTime& time) : m_time(time) { }

    ScriptedStream& arrives(std::string bytes)
    {
        m_reads.push_back({std::move(bytes), false});
        return *this;
    }
    ScriptedStream& nothing(int times = 1)
    {
        for (; times > 0; --times)
            arrives("");
        return *this;
    }
    ScriptedStream& fails()
    {
        m_reads.push_back({"", true});
        return *this;
    }

    bool WritePort(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                   unsigned long timeoutMs) override
    {
        m_written.emplace_back(reinterpret_cast<const char*>(buffer), length);
        m_writeTimeout = timeoutMs;
        m_time.advance(m_writeTakes);
        *sent = std::min(length, m_accepts);
        return !m_writeFails;
    }
    bool ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                  unsigned long timeoutMs) override
    {
        ++m_readCount;
        m_readTimeout = timeoutMs;
        *received = 0;
        if (m_reads.empty() || m_reads.front().bytes.empty()) {
            const bool failed = !m_reads.empty() && m_reads.front().fails;
            if (!m_reads.empty())
                m_reads.pop_front();
            m_time.advance(m_closed ? 0 : timeoutMs);
            return !failed;
        }
        auto& bytes = m_reads.front().bytes;
        *received = std::min<unsigned long>(length, bytes.size());
        std::memcpy(buffer, bytes.data(), *received);
        bytes.erase(0, *received);
        if (bytes.empty())
            m_reads.pop_front();
        m_time.advance(m_readTakes);
        return true;
    }
    [[nodiscard]] bool peerClosed() const override { return m_closed && m_reads.empty(); }
    [[nodiscard]] bool awaitsReply(const unsigned char* packet, unsigned long length) const override
    {
        return !packets::FilePacket(packet, length).isData();
    }

    [[nodiscard]] bool readsReply(const unsigned char* /*packet*/,
                                  unsigned long /*length*/) override
    {
        return m_looks-- > 0;
    }

    std::vector<std::string> m_written;
    int m_looks = std::numeric_limits<int>::max(); // before the link says that no reply is read
    unsigned long m_accepts = std::numeric_limits<unsigned long>::max();
    unsigned long m_writeTimeout = 0;
    unsigned long m_writeTakes = 0;
    unsigned long m_readTimeout = 0;
    unsigned long m_readTakes = 0;
    unsigned m_readCount = 0;
    bool m_writeFails = false;
    bool m_closed = false;

private:
    struct Read {
        std::string bytes;
        bool fails;
    };
    ScriptedTime& m_time;
    std::deque<Read> m_reads;
};

class Exchange : public testing::Test {
protected:
    long exchange(const std::string& packet = "packet")
    {
        ReplyBlock block;
        const auto result =
            exchangePacket(stream, limits, reinterpret_cast<const unsigned char*>(packet.data()),
                           packet.size(), block);
        take(block);
        return result;
    }
    void take(ReplyBlock& block)
    {
        replied = block.bytes != nullptr;
        reply = replied ? std::string(reinterpret_cast<char*>(block.bytes), block.length) : "";
        EXPECT_TRUE(replied || block.length == 0);
        FreeMem(block.bytes);
    }

    ScriptedTime time;
    ScriptedStream stream{time};
    ExchangeLimits limits{1000, 5000, 4096};
    bool replied = false;
    std::string reply;
};

// A file packet of this length, command and kind.
std::string filePacket(std::size_t length, unsigned command, unsigned kind)
{
    std::string packet(length, '\x7F');
    const auto put = [&](std::size_t at, unsigned value) {
        for (const unsigned shift : {8U, 0U}) {
            if (at < length)
                packet[at] = static_cast<char>(value >> shift & 0xFF);
            ++at;
        }
    };
    put(2, command);
    put(42, kind);
    return packet;
}

} // namespace

TEST_F(Exchange, SendsThePacketAndGivesTheWholeReply)
{
    stream.arrives(replyOf("hello"));
    EXPECT_EQ(exchange("request"), conn::kSuccess);
    EXPECT_EQ(stream.m_written, std::vector<std::string>{"request"});
    EXPECT_EQ(reply, replyOf("hello"));
}

// Records the bytes written so far when it runs.
class NotedWork : public IdleWork {
public:
    explicit NotedWork(const ScriptedStream& stream) : m_stream(stream) { }
    void run() override { m_writtenBefore.push_back(m_stream.m_written.size()); }

    std::vector<std::size_t> m_writtenBefore;

private:
    const ScriptedStream& m_stream;
};

TEST_F(Exchange, DoesIdleWorkOnceBetweenTheWriteAndTheReply)
{
    NotedWork work(stream);
    limits.idleWork = &work;
    stream.arrives(replyOf("hello"));
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyOf("hello"));
    EXPECT_EQ(work.m_writtenBefore, std::vector<std::size_t>{1});
}

TEST_F(Exchange, WithoutAPacketOnlyReceives)
{
    stream.arrives(replyOf("hello"));
    ReplyBlock block;
    EXPECT_EQ(exchangePacket(stream, limits, nullptr, 0, block), conn::kSuccess);
    take(block);
    EXPECT_TRUE(stream.m_written.empty());
    EXPECT_EQ(reply, replyOf("hello"));
}

TEST_F(Exchange, EndsAfterAReplyThatIsOnlyAHeader)
{
    stream.arrives(replyHeader(0) + "next");
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyHeader(0));
    EXPECT_EQ(stream.m_readCount, 1U) << "the bytes after it are not touched";
}

TEST_F(Exchange, CollectsABodyThatComesInPieces)
{
    stream.arrives(replyHeader(5)).arrives("h").nothing(3).arrives("el").nothing().arrives("lo");
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyOf("hello"));
}

TEST_F(Exchange, WaitsForTheHeaderAsLongAsTheTimeOut)
{
    stream.nothing(99).arrives(replyOf("late"));
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyOf("late"));
    EXPECT_EQ(stream.m_readTimeout, 10U);
}

TEST_F(Exchange, WithoutAnyReplyIsASuccessWithoutABlock)
{
    const auto start = tickMilliseconds();
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_FALSE(replied);
    EXPECT_EQ(tickMilliseconds() - start, 1000U);
}

TEST_F(Exchange, CountsTheTimeOfTheWriteTowardsTheBudget)
{
    stream.m_writeTakes = 700;
    const auto start = tickMilliseconds();
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(tickMilliseconds() - start, 1000U);
}

TEST_F(Exchange, WaitsTenMillisecondsWhereNoTimeIsLeft)
{
    const struct {
        const char* why;
        unsigned long timeout, writeTakes;
    } rows[] = {{"no time-out was ever set", 0, 0},
                {"the write took all of it", 1000, 1000},
                {"the write took more", 1000, 4000}};
    for (const auto& row : rows) {
        limits.timeoutMs = row.timeout;
        stream.m_writeTakes = row.writeTakes;
        const auto start = tickMilliseconds();
        EXPECT_EQ(exchange(), conn::kSuccess);
        EXPECT_FALSE(replied);
        EXPECT_EQ(tickMilliseconds() - start, row.writeTakes + 10) << row.why;
    }
}

TEST_F(Exchange, GivesTheWriteTheLongerOfItsTwoTimes)
{
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(stream.m_writeTimeout, 5000U);
    limits.timeoutMs = 9000;
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(stream.m_writeTimeout, 9000U);
}

TEST_F(Exchange, FailsWhereThePacketDoesNotGoOutWhole)
{
    stream.m_accepts = 5;
    EXPECT_EQ(exchange("packet"), conn::kSendFailed);
    stream.m_accepts = 0;
    EXPECT_EQ(exchange("packet"), conn::kSendFailed);
    stream.m_accepts = 6;
    stream.m_writeFails = true;
    EXPECT_EQ(exchange("packet"), conn::kSendFailed);
    EXPECT_EQ(stream.m_readCount, 0U) << "nothing is awaited for it";
    EXPECT_FALSE(replied);
}

TEST_F(Exchange, FailsOnAHeaderOfFewerThanEightBytes)
{
    for (std::size_t length = 1; length < 8; ++length) {
        stream.arrives(replyHeader(0).substr(0, length));
        EXPECT_EQ(exchange(), conn::kReceiveFailed) << length;
        EXPECT_FALSE(replied);
    }
}

TEST_F(Exchange, FailsWhereTheLinkFails)
{
    stream.nothing(2).fails();
    EXPECT_EQ(exchange(), conn::kReceiveFailed) << "in place of a header";
    EXPECT_FALSE(replied);
    stream.arrives(replyHeader(5)).arrives("he").fails();
    EXPECT_EQ(exchange(), conn::kReceiveFailed) << "in the middle of a body";
    EXPECT_FALSE(replied);
}

TEST_F(Exchange, ReturnsAReplyCutShortByTheTimeOut)
{
    stream.arrives(replyHeader(100)).arrives("first");
    const auto start = tickMilliseconds();
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyHeader(100) + "first");
    EXPECT_EQ(tickMilliseconds() - start, 1000U);
}

TEST_F(Exchange, EndsInTimeThoughBytesKeepDribbling)
{
    stream.m_readTakes = 50;
    stream.arrives(replyHeader(1000));
    for (int i = 0; i < 1000; ++i)
        stream.arrives("x");
    const auto start = tickMilliseconds();
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(tickMilliseconds() - start, 1000U);
    EXPECT_EQ(reply, replyHeader(1000) + std::string(19, 'x'));
}

TEST_F(Exchange, AsksBeforeEachLookWhetherAReplyIsRead)
{
    stream.m_looks = 0;
    stream.arrives(replyOf("there"));
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_FALSE(replied);
    EXPECT_EQ(stream.m_readCount, 0U) << "not even what is there";
    stream.m_looks = 1;
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyOf("there"));
    stream.m_looks = 3;
    stream.m_readCount = 0;
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_FALSE(replied);
    EXPECT_EQ(stream.m_readCount, 3U);
}

TEST_F(Exchange, AwaitsNoReplyToFileDataOnceAReadFoundNothing)
{
    const auto start = tickMilliseconds();
    EXPECT_EQ(exchange(filePacket(60, 0x5002, 0)), conn::kSuccess);
    EXPECT_FALSE(replied);
    EXPECT_EQ(stream.m_readCount, 1U);
    EXPECT_EQ(tickMilliseconds() - start, 10U);
}

TEST_F(Exchange, TakesAReplyToFileDataThatIsThere)
{
    stream.arrives(replyOf("no"));
    EXPECT_EQ(exchange(filePacket(60, 0x5002, 0)), conn::kSuccess);
    EXPECT_EQ(reply, replyOf("no"));
}

TEST_F(Exchange, AwaitsTheReplyToEveryOtherFilePacket)
{
    for (const auto& packet : {filePacket(59, 0x5002, 0), filePacket(60, 0x5002, 1)}) {
        stream.nothing(20).arrives(replyOf("ok"));
        EXPECT_EQ(exchange(packet), conn::kSuccess);
        EXPECT_EQ(reply, replyOf("ok"));
    }
}

TEST_F(Exchange, DoesNotSpinOnAPeerThatClosed)
{
    stream.m_closed = true;
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_FALSE(replied);
    EXPECT_EQ(stream.m_readCount, 1U);
    stream.m_readCount = 0;
    stream.arrives(replyHeader(100)).arrives("rest");
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyHeader(100) + "rest");
    EXPECT_LE(stream.m_readCount, 3U);
}

TEST_F(Exchange, KeepsWhatFitsThePacketSizeAndDropsTheRest)
{
    const std::string body = "0123456789";
    const struct {
        const char* why;
        unsigned long size;
        std::size_t kept;
    } rows[] = {{"header and body fit", 18, 10},
                {"one byte short", 17, 9},
                {"header only", 8, 0},
                {"less than a header", 7, 0},
                {"nothing", 0, 0},
                {"more than 32 bits", ~0UL, 10}};
    for (const auto& row : rows) {
        limits.packetSize = row.size;
        stream.arrives(replyOf(body)).arrives(replyOf("next"));
        EXPECT_EQ(exchange(), conn::kSuccess);
        EXPECT_EQ(reply, replyHeader(10) + body.substr(0, row.kept)) << row.why;
        limits.packetSize = 4096;
        EXPECT_EQ(exchange(), conn::kSuccess);
        EXPECT_EQ(reply, replyOf("next")) << "the next reply begins where it should";
    }
}

TEST_F(Exchange, KeepsNoMoreThanFitsOfABodyThatComesInPieces)
{
    limits.packetSize = 20; // twelve bytes of the body
    stream.arrives(replyHeader(30)).arrives("01234").arrives("56789abcdefghijklmnopqrst");
    stream.arrives(replyOf("next"));
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyHeader(30) + "0123456789ab");
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyOf("next"));
}

TEST_F(Exchange, DropsABodyFarLargerThanThePacketSize)
{
    const std::string body(100000, 'b');
    stream.arrives(replyOf(body)).arrives(replyOf("next"));
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyHeader(100000) + body.substr(0, 4088));
    EXPECT_EQ(exchange(), conn::kSuccess);
    EXPECT_EQ(reply, replyOf("next"));
}

TEST_F(Exchange, IsSafeWithAnyAnnouncedLength)
{
    for (const std::uint32_t length : {1U, 0x7FFFFFFFU, 0x80000000U, 0x80000001U, 0xFFFFFFFFU}) {
        stream.arrives(replyHeader(length)).nothing();
        EXPECT_EQ(exchange(), conn::kSuccess);
        EXPECT_EQ(reply, replyHeader(length)) << length;
    }
}
