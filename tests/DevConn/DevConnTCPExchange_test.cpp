// SPDX-License-Identifier: MIT
// Replies of every kind over real connections, and a printer's other reactions.
#include "tests/DevConn/TcpFixture.h"

#include <csignal>
#include <pthread.h>

namespace {

LoopbackPeer::Script answering(std::string bytes, std::size_t request = 6)
{
    return [=](PeerLink& link) {
        link.receive(request);
        link.send(bytes);
    };
}

// Sends this before it is requested, and sets the flag once it can be read.
void sendAhead(PeerLink& link, const std::string& bytes, std::atomic<bool>& isThere)
{
    link.send(bytes);
    link.awaitDelivery();
    isThere = true;
}

void awaitThat(const std::atomic<bool>& flag)
{
    while (!flag)
        PeerLink::pause(1);
}

std::string fileDataPacket()
{
    std::string packet(60, '\0');
    packet[2] = 0x50;
    packet[3] = 0x02;
    return packet;
}

} // namespace

using TcpExchange = TcpConnection;

TEST_F(TcpExchange, GivesTheReplyOfThePrinter)
{
    const LoopbackPeer peer(answering(replyOf("hello")));
    connectTo(peer);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyOf("hello"));
}

TEST_F(TcpExchange, EndsAtOnceWithAHeaderThatAnnouncesNothing)
{
    const LoopbackPeer peer(answering(replyHeader(0)));
    connectTo(peer);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyHeader(0));
    EXPECT_LT(tookMs, kSoonMs);
}

TEST_F(TcpExchange, CollectsABodyThatDribbles)
{
    const LoopbackPeer peer([](PeerLink& link) {
        link.receive(6);
        link.send(replyHeader(5));
        for (const char* piece : {"h", "e", "l", "l", "o"}) {
            PeerLink::pause(2);
            link.send(piece);
        }
    });
    connectTo(peer);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyOf("hello"));
}

TEST_F(TcpExchange, KeepsTwoRepliesApartThatArriveTogether)
{
    const LoopbackPeer peer(answering(replyOf("one") + replyOf("two")));
    connectTo(peer);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyOf("one"));
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyOf("two"));
}

TEST_F(TcpExchange, HoldsThroughManyPackets)
{
    constexpr int kPackets = 200;
    const LoopbackPeer peer([](PeerLink& link) {
        for (int i = 0; i < kPackets; ++i)
            link.send(replyOf(link.receive(6)));
    });
    connectTo(peer);
    for (int i = 0; i < kPackets; ++i) {
        const auto packet = std::to_string(100000 + i);
        ASSERT_EQ(exchange(packet), 0);
        ASSERT_EQ(reply, replyOf(packet));
    }
}

TEST_F(TcpExchange, SendsAPacketLargerThanTheSystemBuffers)
{
    constexpr std::size_t kSize = 8 * 1024 * 1024;
    std::string sent(kSize, '\0');
    for (std::size_t i = 0; i < kSize; ++i)
        sent[i] = static_cast<char>(i * 31 >> 3);
    std::string arrived;
    LoopbackPeer peer([&](PeerLink& link) {
        PeerLink::pause(5); // the sender has filled every buffer by now
        arrived = link.receive(kSize);
        link.send(replyOf("all"));
    });
    connectTo(peer);
    EXPECT_EQ(exchange(sent), 0);
    EXPECT_EQ(reply, replyOf("all"));
    peer.join();
    EXPECT_TRUE(arrived == sent);
}

// A printer that stores a packet before it takes the next one needs seconds for that.
TEST_F(TcpExchange, GivesAWriteFiveSecondsHoweverShortTheTimeOutIs)
{
    constexpr std::size_t kSize = 8 * 1024 * 1024;
    const std::string sent(kSize, 'x');
    std::string arrived;
    LoopbackPeer peer([&](PeerLink& link) {
        PeerLink::pause(20); // the buffers are full, and the time-out is long over
        arrived = link.receive(kSize);
    });
    connectTo(peer, 1);
    EXPECT_EQ(exchange(sent), 0);
    peer.join();
    EXPECT_TRUE(arrived == sent);
}

TEST_F(TcpExchange, KeepsTheFirstBytesOfAReplyThatIsTooLarge)
{
    const std::string body(70000, 'b');
    const LoopbackPeer peer(answering(replyOf(body) + replyOf("next")));
    connectTo(peer);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyHeader(70000) + body.substr(0, 4096 - 8));
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyOf("next")) << "the rest was read and dropped";
}

TEST_F(TcpExchange, KeepsAWholeLargeReplyWhereThePacketSizeAllows)
{
    const std::string body(70000, 'b');
    const LoopbackPeer peer(answering(replyOf(body)));
    connectTo(peer);
    transport->SetRecvPacketSize(70008);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyOf(body));
}

TEST_F(TcpExchange, EndsInTimeThoughThePrinterNeverStopsSending)
{
    const std::string begin = replyHeader(0xFFFFFFFF) + std::string(4088, 'x');
    std::atomic<bool> hasBegun{false};
    const LoopbackPeer peer([&](PeerLink& link) {
        sendAhead(link, begin, hasBegun);
        while (link.send(std::string(4096, 'x'))) { }
    });
    connectTo(peer, 40);
    awaitThat(hasBegun);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, begin);
    EXPECT_LT(tookMs, kShortMs);
}

TEST_F(TcpExchange, FailsOnHalfAHeader)
{
    const LoopbackPeer peer(answering(replyHeader(0).substr(0, 4)));
    connectTo(peer);
    EXPECT_EQ(exchange(), -13);
    EXPECT_FALSE(replied);
}

TEST_F(TcpExchange, GivesThePartOfABodyThatArrivedBeforeTheTimeOut)
{
    std::atomic<bool> isThere{false};
    const LoopbackPeer peer(
        [&](PeerLink& link) { sendAhead(link, replyHeader(100) + "first", isThere); });
    connectTo(peer, 40);
    awaitThat(isThere);
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyHeader(100) + "first");
    EXPECT_GE(tookMs, 39);
    EXPECT_LT(tookMs, kShortMs);
}

TEST_F(TcpExchange, WithoutAReplyEndsWithTheTimeOut)
{
    const LoopbackPeer peer(silent());
    connectTo(peer, 40);
    EXPECT_EQ(exchange(), 0);
    EXPECT_FALSE(replied);
    EXPECT_GE(tookMs, 39);
    EXPECT_LT(tookMs, kShortMs);
}

TEST_F(TcpExchange, WaitsTenMillisecondsWhereNoTimeOutWasSet)
{
    const LoopbackPeer peer(silent());
    connectTo(peer, 0);
    EXPECT_EQ(exchange(), 0);
    EXPECT_FALSE(replied);
    EXPECT_GE(tookMs, 9);
    EXPECT_LT(tookMs, kShortMs);
}

TEST_F(TcpExchange, AwaitsNoReplyToFileData)
{
    const LoopbackPeer peer(silent());
    connectTo(peer, 60000);
    EXPECT_EQ(exchange(fileDataPacket()), 0);
    EXPECT_FALSE(replied);
    EXPECT_LT(tookMs, kSoonMs);
}

TEST_F(TcpExchange, HasNoReplyWhereThePrinterClosed)
{
    const LoopbackPeer peer([](PeerLink& link) {
        link.receive(6);
        link.close();
    });
    connectTo(peer, 60000);
    const ProcessorTime used;
    EXPECT_EQ(exchange(), 0);
    EXPECT_FALSE(replied);
    EXPECT_LT(tookMs, kSoonMs) << "nothing more can come";
    EXPECT_LT(used.milliseconds(), 500);
}

TEST_F(TcpExchange, GivesThePartOfABodyThatArrivedBeforeThePrinterClosed)
{
    const LoopbackPeer peer([](PeerLink& link) {
        link.receive(6);
        link.send(replyHeader(100) + "first");
        link.close();
    });
    connectTo(peer, 60000);
    const ProcessorTime used;
    EXPECT_EQ(exchange(), 0);
    EXPECT_EQ(reply, replyHeader(100) + "first");
    EXPECT_LT(tookMs, kSoonMs);
    EXPECT_LT(used.milliseconds(), 500);
}

TEST_F(TcpExchange, FailsWhereThePrinterBreaksTheConnection)
{
    const LoopbackPeer peer([](PeerLink& link) {
        link.receive(6);
        link.reset();
    });
    connectTo(peer);
    EXPECT_EQ(exchange(), -13);
    EXPECT_FALSE(replied);
    EXPECT_EQ(exchange(), -12) << "and the next packet does not go out at all";
    EXPECT_EQ(transport->Disconnect(), -1);
}

TEST_F(TcpExchange, FailsInTheMiddleOfABodyWhereThePrinterBreaksTheConnection)
{
    const LoopbackPeer peer([](PeerLink& link) {
        link.receive(6);
        link.send(replyHeader(100) + "first");
        PeerLink::pause(10);
        link.reset();
    });
    connectTo(peer);
    EXPECT_EQ(exchange(), -13);
    EXPECT_FALSE(replied);
}

TEST_F(TcpExchange, UsesAlmostNoProcessorTimeWhileItWaits)
{
    const LoopbackPeer peer(silent());
    connectTo(peer, 600);
    const ProcessorTime used;
    EXPECT_EQ(exchange(), 0);
    EXPECT_LT(used.milliseconds(), 300);
}

TEST_F(TcpExchange, IsNotCutShortBySignals)
{
    struct sigaction action { };
    action.sa_handler = [](int) {};
    struct sigaction before { };
    sigaction(SIGUSR1, &action, &before);
    const LoopbackPeer peer([](PeerLink& link) {
        link.receive(6);
        PeerLink::pause(20);
        link.send(replyOf("hello"));
    });
    connectTo(peer);
    std::atomic<bool> done{false};
    std::thread disturber([&, target = pthread_self()] {
        while (!done) {
            pthread_kill(target, SIGUSR1);
            PeerLink::pause(1);
        }
    });
    EXPECT_EQ(exchange(), 0);
    done = true;
    disturber.join();
    sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(reply, replyOf("hello"));
}

TEST_F(TcpExchange, ServesOneCallAtATimeFromManyThreads)
{
    constexpr int kRounds = 50;
    const LoopbackPeer peer([](PeerLink& link) {
        for (int i = 0; i < 2 * kRounds; ++i)
            link.send(replyOf(link.receive(4)));
    });
    connectTo(peer);
    const auto talk = [&](std::string packet) {
        for (int i = 0; i < kRounds; ++i) {
            unsigned char* block = nullptr;
            unsigned long length = 0;
            EXPECT_EQ(transport->SendRecvData(reinterpret_cast<unsigned char*>(packet.data()),
                                              packet.size(), &block, &length),
                      0);
            ASSERT_NE(block, nullptr);
            EXPECT_EQ(std::string(reinterpret_cast<char*>(block), length), replyOf(packet));
            EXPECT_EQ(transport->DisposeData(block), 0);
        }
    };
    std::thread other(talk, "left");
    talk("righ");
    other.join();
}

using TcpPort = TcpConnection;

TEST_F(TcpPort, NeedsABufferAndAPlaceForTheCount)
{
    const LoopbackPeer peer(silent());
    connectTo(peer);
    unsigned char byte = 0;
    unsigned long count = 9;
    EXPECT_FALSE(transport->WritePort(nullptr, 1, &count, 1));
    EXPECT_FALSE(transport->WritePort(&byte, 1, nullptr, 1));
    EXPECT_FALSE(transport->ReadPort(nullptr, 1, &count, 1));
    EXPECT_FALSE(transport->ReadPort(&byte, 1, nullptr, 1));
    EXPECT_EQ(count, 9U);
}

TEST_F(TcpPort, DoesNothingForZeroBytes)
{
    unsigned char byte = 0;
    unsigned long count = 9;
    EXPECT_TRUE(transport->WritePort(&byte, 0, &count, 1));
    EXPECT_EQ(count, 0U);
    count = 9;
    EXPECT_TRUE(transport->ReadPort(&byte, 0, &count, 1));
    EXPECT_EQ(count, 0U);
}

TEST_F(TcpPort, FailsWithoutAConnection)
{
    unsigned char byte = 0;
    unsigned long count = 9;
    EXPECT_FALSE(transport->WritePort(&byte, 1, &count, 1));
    EXPECT_EQ(count, 0U);
    count = 9;
    EXPECT_FALSE(transport->ReadPort(&byte, 1, &count, 1));
    EXPECT_EQ(count, 0U);
}

TEST_F(TcpPort, TreatsATimeOutAsNoBytesAndNotAsAnError)
{
    const LoopbackPeer peer(silent());
    connectTo(peer);
    unsigned char byte = 0;
    unsigned long count = 9;
    EXPECT_TRUE(transport->ReadPort(&byte, 1, &count, 5));
    EXPECT_EQ(count, 0U);
    EXPECT_FALSE(transport->peerClosed());
}

TEST_F(TcpPort, DistinguishesAClosedPeerFromASilentOne)
{
    const LoopbackPeer peer([](PeerLink& link) { link.close(); });
    connectTo(peer);
    unsigned char byte = 0;
    unsigned long count = 9;
    EXPECT_TRUE(transport->ReadPort(&byte, 1, &count, 60000));
    EXPECT_EQ(count, 0U);
    EXPECT_TRUE(transport->peerClosed());
}

TEST_F(TcpPort, StopsWritingInTimeToAPeerThatStopsReading)
{
    std::vector<unsigned char> bytes(64 * 1024 * 1024);
    const LoopbackPeer peer(silent());
    connectTo(peer);
    unsigned long sent = 0;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(transport->WritePort(bytes.data(), bytes.size(), &sent, 40));
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_GT(sent, 0U);
    EXPECT_LT(sent, bytes.size());
    EXPECT_GE(took, std::chrono::milliseconds(39));
    EXPECT_LT(took, std::chrono::milliseconds(kShortMs));
}

TEST_F(TcpPort, StopsWritingInTimeToAPeerThatReadsTooSlowly)
{
    std::vector<unsigned char> bytes(64 * 1024 * 1024);
    const LoopbackPeer peer([](PeerLink& link) {
        while (!link.receive(4096).empty())
            PeerLink::pause(1);
    });
    connectTo(peer);
    unsigned long sent = 0;
    EXPECT_TRUE(transport->WritePort(bytes.data(), bytes.size(), &sent, 40));
    EXPECT_LT(sent, bytes.size()) << "all of it would have taken a quarter of a minute";
}
