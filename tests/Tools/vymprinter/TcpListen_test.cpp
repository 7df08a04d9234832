// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/TcpListen.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

constexpr std::uint32_t kLoopback = 0x7F000001;

TEST(VymprinterTcpListen, AddressesAreReadStrictly)
{
    EXPECT_EQ(parseEndpoint("127.0.0.1")->text(), "127.0.0.1:48350");
    EXPECT_EQ(parseEndpoint("127.0.0.9:0")->text(), "127.0.0.9:0");
    for (const auto* wrong : {"", "localhost", "127.0.0", "127.0.0.1:", "127.0.0.1:65536",
                              "127.0.0.1:-1", "127.0.0.1:80x", ":80", "127.0.0.256", "::1"})
        EXPECT_FALSE(parseEndpoint(wrong)) << wrong;
}

TEST(VymprinterTcpListen, ConsecutiveAddressesCarryOver)
{
    const auto all = consecutive(*parseEndpoint("127.0.0.254:7"), 4);
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[1].text(), "127.0.0.255:7");
    EXPECT_EQ(all[2].text(), "127.0.1.0:7");
    EXPECT_TRUE(consecutive(*parseEndpoint("255.255.255.254"), 3).empty());
}

TEST(VymprinterTcpListen, TakenPortSaysWhatToDo)
{
    const auto first = listenOn({kLoopback, 0});
    const auto second = listenOn(first.endpoint);
    EXPECT_FALSE(second.socket.valid());
    EXPECT_THAT(second.error, HasSubstr("cannot listen on " + first.endpoint.text()));
    EXPECT_THAT(second.error, HasSubstr("--listen 127.0.0.1:PORT"));
}

} // namespace
