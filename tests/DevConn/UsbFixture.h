// SPDX-License-Identifier: MIT
// A USB transport connected to a scripted printer.
#pragma once
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnUSB.h"
#include "VYM/vymParse.h"
#include "tests/support/ScriptedUsbHost.h"

#include <gtest/gtest.h>

class UsbTransport : public testing::Test {
protected:
    UsbTransport() { describe("DEVICEIDMODELNAME P1\r\n"); }
    ~UsbTransport() override { describe(""); }
    UsbTransport(const UsbTransport&) = delete;
    UsbTransport& operator=(const UsbTransport&) = delete;

    static void describe(const std::string& text)
    {
        g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
    }
    long connect(const char* port = "usb://Acme/P1?serial=S1")
    {
        return usb.Connect(nullptr, port, 0);
    }
    // One ReadPort; "failed" if it fails.
    std::string read(unsigned long length, unsigned long timeoutMs = 10)
    {
        std::string text(length, '?');
        unsigned long received = 99;
        if (!usb.ReadPort(reinterpret_cast<unsigned char*>(text.data()), length, &received,
                          timeoutMs))
            return "failed";
        EXPECT_LE(received, length);
        text.resize(std::min(received, length));
        return text;
    }
    // One WritePort; returns the number of bytes written, or -1 if it fails.
    long write(const std::string& text, unsigned long timeoutMs = 1000)
    {
        unsigned long sent = 99;
        const bool went = usb.WritePort(reinterpret_cast<const unsigned char*>(text.data()),
                                        text.size(), &sent, timeoutMs);
        EXPECT_TRUE(went || sent == 0);
        return went ? static_cast<long>(sent) : -1;
    }

    ScriptedUsbHost host;
    ScriptedPrinter& printer = host.printer();
    DevConnUSB usb{host};
};
