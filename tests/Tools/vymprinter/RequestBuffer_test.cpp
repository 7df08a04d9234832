// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/RequestBuffer.h"
#include "tests/Tools/vymprinter/requests.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterRequestBuffer, PacketsComeOutWholeHoweverTheyArrive)
{
    requests::Packet stream;
    for (const auto& packet : {requests::enter(), requests::shortQuery(), requests::getFile()})
        stream.insert(stream.end(), packet.begin(), packet.end());
    for (std::size_t step = 1; step <= stream.size(); ++step) {
        RequestBuffer buffer(1000);
        std::vector<Bytes> packets;
        for (std::size_t at = 0; at < stream.size(); at += step) {
            buffer.append(ByteView(stream).subspan(at, std::min(step, stream.size() - at)));
            for (; buffer.frontIsWhole(); buffer.drop())
                packets.emplace_back(buffer.front().begin(), buffer.front().end());
        }
        EXPECT_EQ(packets,
                  (std::vector{requests::enter(), requests::shortQuery(), requests::getFile()}))
            << step;
    }
}

TEST(VymprinterRequestBuffer, AbsurdLengthIsSeenAsSoonAsTheHeaderIsThere)
{
    RequestBuffer buffer(100);
    buffer.append(Bytes{0, 0, 0x50, 0x02, 0xFF, 0xFF, 0xFF});
    EXPECT_FALSE(buffer.frontIsAbsurd());
    buffer.append(Bytes{0xFF});
    EXPECT_TRUE(buffer.frontIsAbsurd());
    EXPECT_FALSE(buffer.frontIsWhole());
}

TEST(VymprinterRequestBuffer, LongestPacketIsNotAbsurdYet)
{
    RequestBuffer buffer(100);
    buffer.append(requests::blank(0x5002, 100));
    EXPECT_FALSE(buffer.frontIsAbsurd());
    EXPECT_TRUE(buffer.frontIsWhole());
}

} // namespace
