// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterWire.h"
#include "Tools/vymprinter/UsbIdentity.h"
#include "tests/Tools/vymprinter/usb_identity.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

std::string textOf(const Bytes& reply)
{
    return {reply.begin() + 2, reply.end()};
}

TEST(VymprinterUsbIdentity, DeviceIdIsMadeOfMakerAndProductWithItsLengthAhead)
{
    const auto reply = deviceIdReply(identity());
    EXPECT_EQ(textOf(reply), "MFG:Acme;CMD:VYM;MDL:P1;CLS:PRINTER;DES:Acme P1;");
    EXPECT_EQ(get16(reply, 0), reply.size());
}

TEST(VymprinterUsbIdentity, DeviceIdIsTheGivenOneAndClaimsTheGivenLength)
{
    auto given = identity();
    given.deviceId = "MDL:X;";
    EXPECT_EQ(textOf(deviceIdReply(given)), "MDL:X;");
    given.deviceIdLength = 0xFFFF;
    EXPECT_EQ(get16(deviceIdReply(given), 0), 0xFFFF);
    EXPECT_EQ(deviceIdReply(given).size(), 8U);
    given.deviceId = "";
    EXPECT_EQ(deviceIdReply(given).size(), 2U);
}

TEST(VymprinterUsbIdentity, DeviceIdIsNoLongerThanItsLengthCanSay)
{
    auto given = identity();
    given.deviceId = std::string(70000, 'x');
    EXPECT_EQ(deviceIdReply(given).size(), 65535U);
}

} // namespace
