// SPDX-License-Identifier: MIT
// The host of this build on the bus of this machine, whatever is plugged in.
#include "Platform/SystemUsbHost.h"

#include <gtest/gtest.h>
#include <thread>

namespace {

// Every query that disturbs no printer.
void lookAround(UsbHost& host)
{
    UsbHost::InterfaceList found;
    if (!host.interfaces(found)) {
        EXPECT_TRUE(found.empty());
        return;
    }
    for (auto& one : found) {
        std::uint16_t vendor = 0;
        std::uint8_t interfaceClass = 0;
        EXPECT_TRUE(one->vendorId(vendor));
        EXPECT_TRUE(one->interfaceClass(interfaceClass));
        EXPECT_TRUE(one->findParent());
        one->isForbidden();
    }
}

} // namespace

TEST(SystemUsbHost, ReadsTheBusOrSaysThatItCannot)
{
    auto* host = systemUsbHost();
    EXPECT_EQ(host, systemUsbHost());
    if (host == nullptr)
        GTEST_SKIP() << "built without a library for USB";
    lookAround(*host);
}

TEST(SystemUsbHost, MayBeUsedFromSeveralThreads)
{
    auto* host = systemUsbHost();
    if (host == nullptr)
        GTEST_SKIP() << "built without a library for USB";
    std::thread other([host] { lookAround(*host); });
    lookAround(*host);
    other.join();
}
