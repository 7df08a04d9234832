// SPDX-License-Identifier: MIT
#include "DevConn/UsbDeviceId.h"
#include "tests/support/ScriptedUsbHost.h"

#include <array>
#include <gtest/gtest.h>

namespace {

class UsbDeviceId : public testing::Test {
protected:
    bool readModel()
    {
        ScriptedInterface found(printer, host.time);
        return usbDeviceId::readModel(found, model);
    }
    bool readVendorAndProduct()
    {
        ScriptedInterface found(printer, host.time);
        return usbDeviceId::readVendorAndProduct(found, vendor, product);
    }
    UsbStatus open()
    {
        ScriptedInterface found(printer, host.time);
        std::unique_ptr<UsbConnection> connection;
        const auto status = usbDeviceId::open(found, connection);
        EXPECT_EQ(connection != nullptr, status == UsbStatus::ok);
        return status;
    }
    ScriptedUsbHost host;
    ScriptedPrinter& printer = host.printer();
    std::string model = "stale";
    std::string vendor = "stale";
    std::string product = "stale";
};

} // namespace

TEST_F(UsbDeviceId, WaitsASecondForEachOfFourBusyAttempts)
{
    for (int busy = 0; busy <= 4; ++busy) {
        printer.busyFor = busy;
        printer.attempts = 0;
        const auto before = host.time.pauses().size();
        EXPECT_EQ(open(), UsbStatus::ok) << busy;
        EXPECT_EQ(printer.attempts, busy + 1);
        EXPECT_EQ(host.time.pauses().size() - before, static_cast<std::size_t>(busy));
    }
    for (const auto pause : host.time.pauses())
        EXPECT_EQ(pause, 1000U);
}

TEST_F(UsbDeviceId, GivesUpAfterFiveBusyAttempts)
{
    printer.busyFor = 5;
    EXPECT_EQ(open(), UsbStatus::busy);
    EXPECT_EQ(printer.attempts, 5);
    EXPECT_EQ(host.time.pauses(), std::vector<unsigned long>(4, 1000));
}

TEST_F(UsbDeviceId, TriesOnlyOnceWhereOpeningFails)
{
    printer.opens = false;
    EXPECT_EQ(open(), UsbStatus::failed);
    EXPECT_EQ(printer.attempts, 1);
    EXPECT_TRUE(host.time.pauses().empty());
}

TEST_F(UsbDeviceId, IsRequestedWithTheClassRequest)
{
    printer.configuration = 3;
    printer.number = 2;
    printer.alternate = 1;
    EXPECT_TRUE(readModel());
    ASSERT_EQ(printer.requests.size(), 1U);
    const auto& request = printer.requests.front();
    EXPECT_EQ(request.requestType, 0xA1);
    EXPECT_EQ(request.request, 0);
    EXPECT_EQ(request.value, 2);
    EXPECT_EQ(request.index, 0x0201);
    EXPECT_EQ(request.length, 256);
    EXPECT_EQ(request.noDataTimeoutMs, 500U);
    EXPECT_EQ(request.completionTimeoutMs, 500U);
    EXPECT_EQ(printer.open, 0) << "closed again";
}

TEST_F(UsbDeviceId, OfADeviceWithoutAConfigurationWrapsTheValue)
{
    printer.configuration = 0;
    EXPECT_TRUE(readModel());
    EXPECT_EQ(printer.requests.front().value, 0xFFFF);
}

TEST_F(UsbDeviceId, IsNotReadIfAnyRequestFails)
{
    const auto fresh = printer;
    const std::function<void()> faults[] = {
        [&] { printer.opens = false; },    [&] { printer.configuration.reset(); },
        [&] { printer.number.reset(); },   [&] { printer.alternate.reset(); },
        [&] { printer.deviceId.reset(); }, [&] { printer.busyFor = 9; },
    };
    for (const auto& fault : faults) {
        printer = fresh;
        fault();
        EXPECT_FALSE(readModel());
        EXPECT_EQ(model, "");
        printer.busyFor = printer.busyFor > 0 ? 9 : 0;
        EXPECT_FALSE(readVendorAndProduct());
        EXPECT_EQ(vendor + product, "");
        EXPECT_EQ(printer.open, 0);
    }
}

TEST_F(UsbDeviceId, GivesModelVendorAndProduct)
{
    const struct {
        const char* why;
        const char* text;
        const char *model, *vendor, *product;
    } rows[] = {
        {"the usual", "MFG:Acme;CMD:X;MDL:P1;", "P1", "Acme", "P1"},
        {"spelt out, no last semicolon", "MFG:Acme;MODEL:P 1", "P 1", "Acme", "P 1"},
        {"model first: no product", "MDL:P1;MFG:Acme;", "P1", "Acme", ""},
        {"model spelt out first: no product", "MODEL:P1;MFG:Acme;", "P1", "Acme", ""},
        {"small letters", "mfg:Acme;mdl:P1;", "", "", ""},
        {"a later key wins", "MFG:A;MDL:P1;MFG:B;MODEL:P2;", "P2", "B", "P2"},
        {"neither key", "CMD:X;", "", "", ""},
        {"nothing", "", "", "", ""},
        {"one character", "M", "", "", ""},
        {"no colon", "MFG Acme", "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        printer.deviceId = row.text;
        EXPECT_TRUE(readModel());
        EXPECT_TRUE(readVendorAndProduct());
        EXPECT_EQ(model, row.model);
        EXPECT_EQ(vendor, row.vendor);
        EXPECT_EQ(product, row.product);
    }
}

TEST_F(UsbDeviceId, TrustsTheReceivedBytesAndNotTheAnnouncedLength)
{
    const struct {
        const char* why;
        std::string reply;
        std::optional<std::uint32_t> claimed;
        std::string model;
    } rows[] = {
        {"a length of 0 announced", std::string("\0\0MDL:P1;", 9), {}, "P1"},
        {"a length of 65535 announced", "\xFF\xFFMDL:P1;", {}, "P1"},
        {"no byte", "", {}, ""},
        {"half a prefix", "M", {}, ""},
        {"a prefix alone", "MM", {}, ""},
        {"longer than asked for", "xxMDL:" + std::string(5000, 'p'), {}, std::string(250, 'p')},
        {"more claimed than asked for", "xxMDL:P1;", 0xFFFFFFFF, "P1"},
        {"less claimed than came", "xxMDL:P123;", 7, "P"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        printer.wholeReply = row.reply;
        printer.claimedLength = row.claimed;
        EXPECT_TRUE(readModel());
        EXPECT_EQ(model, row.model);
        EXPECT_TRUE(readVendorAndProduct());
    }
}

TEST_F(UsbDeviceId, GivesItsPrefixInTheMachinesOrder)
{
    ScriptedInterface found(printer, host.time);
    std::unique_ptr<UsbConnection> connection;
    ASSERT_EQ(usbDeviceId::open(found, connection), UsbStatus::ok);
    std::vector<unsigned char> buffer(9000);
    unsigned long size = buffer.size();
    ASSERT_EQ(usbDeviceId::request(*connection, buffer.data(), &size, 700), UsbStatus::ok);
    std::uint16_t announced = 0;
    std::memcpy(&announced, buffer.data(), sizeof announced);
    EXPECT_EQ(announced, printer.deviceId->size() + 2);
    EXPECT_EQ(size, printer.deviceId->size() + 2);
    EXPECT_EQ(printer.requests.back().length, 4096) << "no more is ever asked for";
    EXPECT_EQ(printer.requests.back().completionTimeoutMs, 700U);
}

TEST_F(UsbDeviceId, GivesItsPrefixInTheMachinesOrderIfThatAloneFits)
{
    ScriptedInterface found(printer, host.time);
    std::unique_ptr<UsbConnection> connection;
    ASSERT_EQ(usbDeviceId::open(found, connection), UsbStatus::ok);
    std::uint16_t announced = 0;
    unsigned long size = sizeof announced;
    ASSERT_EQ(
        usbDeviceId::request(*connection, reinterpret_cast<unsigned char*>(&announced), &size, 700),
        UsbStatus::ok);
    EXPECT_EQ(size, 2U);
    EXPECT_EQ(announced, printer.deviceId->size() + 2);
}

TEST_F(UsbDeviceId, LeavesABufferOfOneByteAlone)
{
    ScriptedInterface found(printer, host.time);
    std::unique_ptr<UsbConnection> connection;
    ASSERT_EQ(usbDeviceId::open(found, connection), UsbStatus::ok);
    std::array<unsigned char, 2> buffer{7, 9};
    unsigned long size = 1;
    EXPECT_EQ(usbDeviceId::request(*connection, buffer.data(), &size, 700), UsbStatus::ok);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(buffer[1], 9);
}
