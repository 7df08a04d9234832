// SPDX-License-Identifier: MIT
#include "CLI/LinkFacts.h"
#include "CLI/PacketTrace.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>

TEST(LinkFacts, HaveWhatTheTraceHasSeen)
{
    PacketTrace trace(nullptr, [] { return 0.0; });
    EXPECT_EQ(linkFacts(trace, "192.0.2.7").connect, std::nullopt);
    trace.connected("192.0.2.7", 9100, ConnectProblem::refused, ECONNREFUSED);
    EXPECT_EQ(linkFacts(trace, "192.0.2.7").connect, ConnectProblem::refused);
    EXPECT_EQ(linkFacts(trace, "192.0.2.7").isAnswered, std::nullopt);
    trace.connected("192.0.2.7", 9100, ConnectProblem::none, 0);
    trace.sent(std::array<unsigned char, 12>{}, 1);
    EXPECT_EQ(linkFacts(trace, "192.0.2.7").isAnswered, false);
}

TEST(LinkFacts, OfANetworkPrinterNameNoProgramAndNoPermission)
{
    PacketTrace trace(nullptr, [] { return 0.0; });
    trace.connected("192.0.2.7", 9100, ConnectProblem::refused, ECONNREFUSED);
    const auto link = linkFacts(trace, "192.0.2.7");
    EXPECT_FALSE(link.notPermitted);
    EXPECT_EQ(link.usedBy, "");
}
