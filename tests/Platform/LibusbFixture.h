// SPDX-License-Identifier: MIT
// The host with a scripted library; every object must have been given back at the end.
#pragma once
#include "Platform/LibusbHost.h"
#include "tests/Platform/FakeLibusb.h"

#include <gtest/gtest.h>

class OnLibusb : public testing::Test {
protected:
    OnLibusb() = default;
    ~OnLibusb() override
    {
        connection.reset();
        found.clear();
        EXPECT_EQ(library.inFlight(), 0);
        EXPECT_EQ(library.transfers, 0);
        EXPECT_EQ(library.handles, 0);
        EXPECT_EQ(library.references, 0);
        EXPECT_EQ(library.configurations, 0);
        EXPECT_EQ(library.contexts, 0);
        EXPECT_EQ(library.claims, 0);
    }
    OnLibusb(const OnLibusb&) = delete;
    OnLibusb& operator=(const OnLibusb&) = delete;

    UsbInterface& only()
    {
        found.clear();
        library.describe();
        EXPECT_TRUE(host.interfaces(found));
        EXPECT_EQ(found.size(), 1U);
        return *found.at(0);
    }
    UsbStatus open() { return only().open(connection); }

    FakeLibusb library;
    LibusbHost host;
    UsbHost::InterfaceList found;
    std::unique_ptr<UsbConnection> connection;
};
