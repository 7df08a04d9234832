// SPDX-License-Identifier: MIT
// Print servers that misbehave.
#include "tests/Platform/IppMessage.h"
#include "tests/Platform/PrintServerQuestion.h"
#include "tests/support/LoopbackPeer.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <sys/un.h>

namespace {

using namespace std::chrono_literals;

constexpr auto kLimit = 300ms;
constexpr auto kSoon = 60s; // for what takes milliseconds, on a loaded machine

PrintServerReply askPeer(LoopbackPeer::Script script, std::chrono::milliseconds limit = kSoon)
{
    const LoopbackPeer peer(std::move(script));
    return ask("127.0.0.1:" + std::to_string(peer.port()), limit);
}

// Reads up to the end of the request: its last byte says "no more attributes".
void receiveRequest(PeerLink& link)
{
    std::string request;
    while (!link.ended()
           && (request.find("\r\n\r\n") == std::string::npos || request.back() != '\3'))
        request += link.receive(1);
}

std::string http(const std::string& body, const std::string& status = "200 OK")
{
    return "HTTP/1.1 " + status + "\r\nContent-Type: application/ipp\r\nContent-Length: "
        + std::to_string(body.size()) + "\r\n\r\n" + body;
}

PrintServerReply answered(const std::string& bytes)
{
    return askPeer([&](PeerLink& link) {
        receiveRequest(link);
        link.send(bytes);
        link.close();
    });
}

void expectLate(const PrintServerReply& reply)
{
    EXPECT_FALSE(reply.isListed);
    EXPECT_TRUE(reply.queues.empty());
    EXPECT_NE(reply.reason.find("no complete answer in time"), std::string::npos) << reply.reason;
    EXPECT_GE(reply.took, kLimit);
    EXPECT_LT(reply.took, kSoon);
}

void expectNotUnderstood(const PrintServerReply& reply)
{
    EXPECT_FALSE(reply.isListed);
    EXPECT_TRUE(reply.queues.empty());
    EXPECT_NE(reply.reason.find("incomplete or cannot be understood"), std::string::npos)
        << reply.reason;
    EXPECT_LT(reply.took, kSoon);
}

} // namespace

TEST(CupsPeers, OneThatBehavesIsListed)
{
    const auto reply = answered(http(IppMessage().queue("q").end()));
    EXPECT_TRUE(reply.isListed) << reply.reason;
    EXPECT_EQ(reply.identifiers(), std::vector<std::string>{"q"});
}

TEST(CupsPeers, ThatSendPiecesAreListed)
{
    const auto body = IppMessage().queue("q").end();
    const auto size = std::to_string(body.size());
    EXPECT_EQ(body.size(), 28U);
    const auto reply = answered("HTTP/1.1 100 Continue\r\n\r\n"
                                "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1c\r\n"
                                + body + "\r\n0\r\n\r\n");
    EXPECT_EQ(reply.identifiers(), std::vector<std::string>{"q"}) << reply.reason;
}

TEST(CupsPeers, ThatNeverAnswerAreGivenUp)
{
    expectLate(askPeer([](PeerLink&) {}, kLimit));
}

TEST(CupsPeers, ThatHangOnTheLocalSocketAreGivenUp)
{
    const TempFolder folder;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    (folder / "cups.sock").copy(address.sun_path, sizeof address.sun_path - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listener, 4), 0);
    expectLate(ask(folder / "cups.sock", kLimit));
    close(listener);
}

TEST(CupsPeers, ThatTrickleTheirHeadersAreGivenUp)
{
    expectLate(askPeer(
        [](PeerLink& link) {
            link.send("HTTP/1.1 200 OK\r\nX-Comment: ");
            while (link.send("x"))
                PeerLink::pause(5);
        },
        kLimit));
}

TEST(CupsPeers, ThatSendHeadersWithoutEndAreGivenUp)
{
    expectLate(askPeer(
        [](PeerLink& link) {
            link.send("HTTP/1.1 200 OK\r\n");
            while (link.send("X-Comment: and so on\r\n"))
                PeerLink::pause(1);
        },
        kLimit));
}

TEST(CupsPeers, ThatOnlySendContinueAreGivenUp)
{
    expectLate(askPeer(
        [](PeerLink& link) {
            while (link.send("HTTP/1.1 100 Continue\r\n\r\n"))
                PeerLink::pause(1);
        },
        kLimit));
}

TEST(CupsPeers, ThatTrickleTheirAnswerAreGivenUp)
{
    expectLate(askPeer(
        [](PeerLink& link) {
            receiveRequest(link);
            const auto whole = http(IppMessage().queue(std::string(10000, 'q')).end());
            link.send(whole.substr(0, 120));
            for (std::size_t at = 120; at < whole.size() && link.send(whole.substr(at, 1)); ++at)
                PeerLink::pause(5);
        },
        kLimit));
}

TEST(CupsPeers, ThatCloseAreNotUnderstood)
{
    expectNotUnderstood(askPeer([](PeerLink& link) {
        link.receive(1);
        link.close();
    }));
    expectNotUnderstood(askPeer([](PeerLink& link) {
        link.receive(1);
        link.reset();
    }));
    expectNotUnderstood(answered("HTTP/1.1 200 OK\r\n"));
    expectNotUnderstood(answered(http(IppMessage().queue("q").end()).substr(0, 90)));
}

TEST(CupsPeers, ThatCloseAtOnceAreNotListed)
{
    const auto reply = askPeer([](PeerLink& link) { link.reset(); });
    EXPECT_FALSE(reply.isListed);
    EXPECT_NE(reply.reason, "");
}

TEST(CupsPeers, ThatSendGarbageAreNotUnderstood)
{
    expectNotUnderstood(answered("\x01\x02\x03 garbage\r\n\r\n"));
    expectNotUnderstood(answered(std::string(100000, '\xFF') + "\n"));
    expectNotUnderstood(answered(http("this is no IPP message")));
    expectNotUnderstood(answered(http("")));
    expectNotUnderstood(answered("HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\nxxxxx"));
}

TEST(CupsPeers, ThatStopInTheMiddleOfAPackedAnswerLeakNoMemory)
{
    const std::string start("\x1F\x8B\x08\0\0\0\0\0\0\x03\x01\x05\0\xFA\xFFhe", 17); // gzip
    expectNotUnderstood(answered("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n"
                                 "Content-Length: 100\r\n\r\n"
                                 + start));
    expectNotUnderstood(answered("HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\n"
                                 "Content-Length: 4\r\n\r\nxxxx"));
}

TEST(CupsPeers, ThatCountTheirPiecesWrongAreNotUnderstood)
{
    for (const std::string count : {"zz", "-1", "ffffffffffffffff", "7fffffffffffffff"})
        expectNotUnderstood(
            answered("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + count + "\r\nxxxx"));
}

TEST(CupsPeers, ThatSendCollectionsInCollectionsDoNoHarm)
{
    IppMessage message;
    message.queue("q").attribute(0x34, "media-col", "");
    for (int depth = 0; depth < 100000; ++depth)
        message.attribute(0x4A, "", "x").attribute(0x34, "", "");
    EXPECT_EQ(answered(http(message.end())).queues.size(), 1U);
}

TEST(CupsPeers, ThatSendWithoutEndAreCutOffAtTheBound)
{
    expectNotUnderstood(askPeer([](PeerLink& link) {
        receiveRequest(link);
        link.send("HTTP/1.1 200 OK\r\n\r\n");
        while (link.send(std::string(1 << 20, 'x'))) { }
    }));
}

TEST(CupsPeers, ThatRefuseSayWhy)
{
    const auto forbidden = answered(http("", "403 Forbidden"));
    EXPECT_FALSE(forbidden.isListed);
    EXPECT_EQ(forbidden.reason, "The print system does not list its printers: Forbidden.");
    const auto unauthorised = answered(http("", "401 Unauthorized"));
    EXPECT_EQ(unauthorised.reason, "The print system does not list its printers: Unauthorized.");
    const auto refused = answered(http(IppMessage(0x0401).end()));
    EXPECT_FALSE(refused.isListed);
    EXPECT_EQ(refused.reason.rfind("The print system does not list its printers: ", 0), 0U)
        << refused.reason;
}

TEST(CupsPeers, ThatFoundNoQueueReturnAnEmptyList)
{
    const auto reply = answered(http(IppMessage(0x0406).end()));
    EXPECT_TRUE(reply.isListed) << reply.reason;
    EXPECT_TRUE(reply.queues.empty());
}

TEST(CupsPeers, ThatAreNotThereAreNamed)
{
    const RefusingPort gone;
    const auto reply = ask("127.0.0.1:" + std::to_string(gone.port()));
    EXPECT_FALSE(reply.isListed);
    EXPECT_NE(reply.reason.find("does not answer at \"127.0.0.1\""), std::string::npos)
        << reply.reason;
    const auto missing = ask("/nonexistent/cups.sock");
    EXPECT_FALSE(missing.isListed);
    EXPECT_NE(missing.reason.find("\"/nonexistent/cups.sock\""), std::string::npos)
        << missing.reason;
}
