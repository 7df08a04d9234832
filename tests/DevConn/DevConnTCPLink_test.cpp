// SPDX-License-Identifier: MIT
// The network transport's knowledge of its link, the length of its writes, and its way of leaving.
#include "VYM/vymMac.h"
#include "tests/DevConn/TcpFixture.h"
#include "tests/support/Await.h"
#include "tests/support/ScriptedTime.h"

namespace {

using TcpLink = TcpConnection;

// A file packet's head with that many bytes of data.
std::string filePacket(std::size_t data)
{
    std::string packet(60 + data, 'd');
    packet.replace(2, 2, "\x50\x02");
    packet.replace(42, 2, std::string(2, '\0'));
    return packet;
}

TEST_F(TcpLink, KnowsNothingWithoutAConnection)
{
    const auto link = transport->LookAtLink();
    EXPECT_EQ(link.unsent, 0U);
    EXPECT_FALSE(link.arrived);
    EXPECT_FALSE(link.closed);
}

TEST_F(TcpLink, ReportsBytesThatHaveNotReachedThePeer)
{
    std::atomic<bool> reads{false};
    const LoopbackPeer peer([&](PeerLink& link) {
        while (!reads && !link.ended())
            PeerLink::pause(1);
        link.receive(1 << 20);
    });
    connectTo(peer);
    const std::string bytes(200000, 'x');
    unsigned long sent = 0;
    EXPECT_TRUE(transport->WritePort(reinterpret_cast<const unsigned char*>(bytes.data()),
                                     bytes.size(), &sent, 50));
    EXPECT_GT(transport->LookAtLink().unsent, 0U);
    reads = true;
    EXPECT_TRUE(becomesTrue([&] { return transport->LookAtLink().unsent == 0; }));
}

TEST_F(TcpLink, SaysWhetherSomethingIsThereAndWhetherThePeerHasEnded)
{
    std::atomic<bool> ends{false};
    const LoopbackPeer peer([&](PeerLink& link) {
        link.send(replyOf("early"));
        while (!ends && !link.ended())
            PeerLink::pause(1);
        link.close();
    });
    connectTo(peer);
    EXPECT_TRUE(becomesTrue([&] { return transport->LookAtLink().arrived; }));
    EXPECT_EQ(exchange(""), 0); // only receives
    EXPECT_TRUE(replied);
    EXPECT_FALSE(transport->LookAtLink().arrived);
    ends = true;
    EXPECT_TRUE(becomesTrue([&] { return transport->LookAtLink().arrived; }));
    EXPECT_FALSE(transport->LookAtLink().closed) << "not before it was received";
    EXPECT_EQ(exchange(""), 0);
    EXPECT_TRUE(transport->LookAtLink().closed);
    EXPECT_FALSE(transport->LookAtLink().arrived);
}

// Five seconds pass, on this clock, with every 32 KiB that the peer takes: longer than the time-out
// in total, but never that long without progress, since the system's buffers hold few of these.
TEST_F(TcpLink, WritesOnForAsLongAsAPeerTakesSomeOfIt)
{
    const std::size_t size = 1 << 20;
    ScriptedTime clock;
    std::atomic<std::size_t> got{0};
    const LoopbackPeer peer([&](PeerLink& link) {
        while (got < size && !link.ended()) {
            got += link.receive(32768).size();
            clock.advance(5000);
        }
    });
    connectTo(peer);
    const std::string bytes(size, 'x');
    unsigned long sent = 0;
    EXPECT_TRUE(transport->WritePacket(reinterpret_cast<const unsigned char*>(bytes.data()),
                                       bytes.size(), &sent, 60000));
    EXPECT_EQ(sent, size);
    EXPECT_TRUE(becomesTrue([&] { return got == size; }));
}

TEST_F(TcpLink, LeavesSoThatThePeerStillReadsEverything)
{
    std::string got;
    std::atomic<bool> sent{false};
    LoopbackPeer peer([&](PeerLink& link) {
        link.send(replyOf("an answer that nobody reads"));
        while (!sent && !link.ended())
            PeerLink::pause(1);
        PeerLink::pause(30);
        link.send(replyOf("and one that comes after the end"));
        got = link.receive(1 << 20);
        link.close();
    });
    connectTo(peer);
    const auto packet = filePacket(3000);
    exchange(packet);
    exchange(packet); // unanswered: an answer is still due
    exchange(packet);
    sent = true;
    EXPECT_EQ(transport->Disconnect(), -1);
    peer.join();
    EXPECT_EQ(got.size(), 3 * packet.size());
}

TEST_F(TcpLink, WaitsForNoEndLongerThanItsTimeOut)
{
    const LoopbackPeer peer([](PeerLink& link) { link.receive(1 << 20); });
    connectTo(peer, 60);
    exchange(filePacket(10));
    const auto start = tickMilliseconds();
    EXPECT_EQ(transport->Disconnect(), -1);
    EXPECT_LT(tickMilliseconds() - start, std::uint64_t{kSoonMs}); // the peer never ends
}

TEST_F(TcpLink, WaitsForNoEndWhereNothingIsDue)
{
    const LoopbackPeer peer([](PeerLink& link) {
        link.receive(68);
        link.send(replyOf("taken"));
        while (!link.ended())
            PeerLink::pause(1);
    });
    connectTo(peer);
    exchange(filePacket(8)); // awaits no answer
    if (!replied)
        exchange("");
    EXPECT_TRUE(replied);
    const auto start = tickMilliseconds();
    EXPECT_EQ(transport->Disconnect(), -1);
    EXPECT_LT(tickMilliseconds() - start, std::uint64_t{kSoonMs});
}

} // namespace
