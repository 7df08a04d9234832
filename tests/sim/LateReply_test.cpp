// SPDX-License-Identifier: MIT
// A reply that arrives in the last moments of its time, on a system whose calls are interrupted
// again and again.
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnTCP.h"
#include "tests/sim/Link.h"
#include "tests/sim/Sockets.h"
#include "tests/sim/World.h"
#include "tests/support/Printer.h"

#include <gtest/gtest.h>

namespace {

constexpr unsigned long kTimeoutMs = 500;
constexpr sim::Micros kMoments = 40; // before the end of the time; a call takes 3

// The length of what one exchange returns.
unsigned long lengthOfReply(sim::Micros beforeTheEnd, const std::string& reply)
{
    sim::LinkManners manners;
    manners.shortPercent = 60;
    sim::World world(false);
    sim::Link link(manners, sim::Random(beforeTheEnd));
    sim::plugInLink(&link);
    unsigned char* block = nullptr;
    unsigned long length = 0;
    {
        DevConnTCP tcp;
        EXPECT_EQ(tcp.Connect(nullptr, "192.0.2.7", 9100), conn::kSuccess);
        tcp.SetTimeout(kTimeoutMs);
        world.at((world.now() / sim::kMilli + kTimeoutMs) * sim::kMilli - beforeTheEnd,
                 [&] { link.printerSend(reply); });
        EXPECT_EQ(tcp.SendRecvData(nullptr, 0, &block, &length), conn::kSuccess);
        tcp.Disconnect();
    }
    world.settle(sim::kSecond);
    sim::plugInLink(nullptr);
    return length;
}

TEST(LateReply, IsReadWholeOrNotAtAllHoweverOftenCallsAreInterrupted)
{
    const auto reply = printer::piece(0x80);
    unsigned whole = 0;
    for (sim::Micros before = 0; before < kMoments; ++before) {
        const auto length = lengthOfReply(before, reply);
        EXPECT_TRUE(length == 0 || length == reply.size())
            << length << " bytes, " << before << " microseconds before the end";
        whole += length != 0 ? 1 : 0;
    }
    EXPECT_GT(whole, 0U);
}

} // namespace
