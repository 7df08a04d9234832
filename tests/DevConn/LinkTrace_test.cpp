// SPDX-License-Identifier: MIT
#include "DevConn/DevConnMgr.h"
#include "DevConn/LinkTrace.h"
#include "tests/support/LoopbackPeer.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>
#include <vector>

namespace {

struct Recorder : LinkTrace {
    Recorder() { setLinkTrace(this); }
    ~Recorder() override { setLinkTrace(nullptr); }
    void connected(const char*, unsigned short, ConnectProblem problem, int) override
    {
        problems.push_back(problem);
    }
    void sent(std::span<const unsigned char> packet, long) override { out += packet.size(); }
    void received(std::span<const unsigned char> reply) override { in += reply.size(); }

    std::vector<ConnectProblem> problems;
    std::size_t out = 0;
    std::size_t in = 0;
};

} // namespace

TEST(LinkTrace, SaysWhyAConnectionWasNotMade)
{
    Recorder recorder;
    void* handle = nullptr;
    auto* manager = DevConnMgr::Instance();
    const RefusingPort closed;
    EXPECT_LT(manager->Connect(nullptr, "127.0.0.1", 0, closed.port(), &handle), 0);
    // A part of a name has at most 63 characters: so no name server is queried, or waited for.
    const auto noName = "lpd://" + std::string(64, 'a') + ".example/";
    EXPECT_LT(manager->Connect("queue", noName.c_str(), 0, 1, &handle), 0);
    ASSERT_EQ(recorder.problems.size(), 2U);
    EXPECT_EQ(recorder.problems[0], ConnectProblem::refused);
    EXPECT_EQ(recorder.problems[1], ConnectProblem::unknownHost);
}

TEST(LinkTrace, SeesEachPacketOfAnExchange)
{
    LoopbackPeer peer([](PeerLink& link) {
        link.receive(10);
        link.send(replyOf("1234"));
    });
    Recorder recorder;
    void* handle = nullptr;
    auto* manager = DevConnMgr::Instance();
    ASSERT_EQ(manager->Connect(nullptr, "127.0.0.1", 0, peer.port(), &handle), 0);
    manager->SetTimeout(handle, 60000);
    std::array<unsigned char, 10> query = {0, 0, 0x51, 0x03, 0, 0, 0, 2};
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    EXPECT_GE(manager->SendRecvData(handle, query.data(), query.size(), &reply, &length), 0);
    manager->DisposeData(handle, reply);
    manager->Disconnect(handle);
    EXPECT_EQ(recorder.problems, std::vector{ConnectProblem::none});
    EXPECT_EQ(recorder.out, 10U);
    EXPECT_EQ(recorder.in, 12U);
}

TEST(LinkTrace, NamesTheErrorsOfTheSystem)
{
    EXPECT_EQ(connectProblemOf(0), ConnectProblem::none);
    EXPECT_EQ(connectProblemOf(ECONNREFUSED), ConnectProblem::refused);
    EXPECT_EQ(connectProblemOf(ETIMEDOUT), ConnectProblem::timedOut);
    EXPECT_EQ(connectProblemOf(EHOSTUNREACH), ConnectProblem::noRoute);
    EXPECT_EQ(connectProblemOf(ENETUNREACH), ConnectProblem::noRoute);
    EXPECT_EQ(connectProblemOf(EMFILE), ConnectProblem::other);
}
