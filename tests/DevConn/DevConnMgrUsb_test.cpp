// SPDX-License-Identifier: MIT
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnMgr.h"
#include "VYM/vymParse.h"
#include "tests/support/FailingMemory.h"
#include "tests/support/ScriptedUsbHost.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

class UsbPorts : public testing::Test {
protected:
    static void describe(const std::string& text)
    {
        g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
    }
    // The entries of the list; checks their number against the returned one.
    Texts list()
    {
        auto* ports = reinterpret_cast<_PORT_INFO_1A*>(0x77);
        const auto count = DevConnMgr::Instance()->EnumUsbPort(&ports);
        EXPECT_EQ(ports == nullptr, count == 0);
        Texts texts;
        for (long i = 0; i < count; ++i)
            texts.emplace_back(ports[i].m_portName);
        DevConnMgr::Instance()->FreeUsbPort(ports);
        return texts;
    }
    ScriptedUsbHost host;
};

} // namespace

TEST(UsbPortsWithoutAHost, AreNone)
{
    auto* ports = reinterpret_cast<_PORT_INFO_1A*>(0x77);
    EXPECT_EQ(DevConnMgr::Instance()->EnumUsbPort(&ports), 0);
    EXPECT_EQ(ports, nullptr);
    void* handle = nullptr;
    EXPECT_EQ(DevConnMgr::Instance()->Connect(nullptr, "usb://A/P?serial=1", 0, 0, &handle),
              conn::kNoTransport);
    EXPECT_EQ(handle, nullptr);
}

TEST_F(UsbPorts, AreAnEmptyListOnAnEmptyOrUnreadableBus)
{
    EXPECT_EQ(list(), Texts{});
    EXPECT_EQ(DevConnMgr::Instance()->EnumUsbPort(nullptr), 0);
    host.printer();
    host.failWalks();
    EXPECT_EQ(list(), Texts{});
}

TEST_F(UsbPorts, NameVendorProductAndSerialOfEachPrinter)
{
    host.printer();
    EXPECT_EQ(list(), Texts{"usb://Acme/P1?serial=S1"});
    host.printer().vendorId = 1;
    auto& second = host.printer();
    second.deviceId = "MFG:Acme & Sons;MODEL:P 2/A (x);";
    second.serial = "S 2";
    host.printer().interfaceClass = 3;
    host.printer().deviceId = "MFG:A/B;MDL:50%;";
    EXPECT_EQ(
        list(),
        (Texts{"usb://Acme/P1?serial=S1", "usb://Acme%20&%20Sons/P%202%2FA%20%28x%29?serial=S 2",
               "usb://A/B/50%25?serial=S1"}));
}

TEST_F(UsbPorts, CountAPrinterWithoutASerialAndLeaveItsNameEmpty)
{
    host.printer();
    host.printer().serial.reset();
    host.printer().parent = false;
    EXPECT_EQ(list(), (Texts{"usb://Acme/P1?serial=S1", "", ""}));
    EXPECT_EQ(host.printers()[1].attempts, 0);
}

TEST_F(UsbPorts, TakeTheSystemsNamesWhereTheDeviceIdCannotBeRead)
{
    auto& printer = host.printer();
    printer.deviceId.reset();
    EXPECT_EQ(list(), Texts{"usb://Record%20Vendor/Record%20Product?serial=S1"});
    printer.productName.reset();
    EXPECT_EQ(list(), Texts{""});
    printer.productName = "P";
    printer.vendorName.reset();
    EXPECT_EQ(list(), Texts{""});
}

TEST_F(UsbPorts, ShowNoNameOfThePreviousPrinter)
{
    host.printer();
    host.printer().deviceId = "CMD:X;";
    host.printer().deviceId = "MDL:P3;MFG:Third;";
    EXPECT_EQ(list(),
              (Texts{"usb://Acme/P1?serial=S1", "usb:///?serial=S1", "usb://Third/?serial=S1"}));
}

TEST_F(UsbPorts, WaitForAPrinterThatIsBusyForAMoment)
{
    host.printer().busyFor = 3;
    EXPECT_EQ(list(), Texts{"usb://Acme/P1?serial=S1"});
    EXPECT_EQ(host.time.pauses(), std::vector<unsigned long>(3, 1000));
}

TEST_F(UsbPorts, BoundTheTextsOfAHostileDevice)
{
    auto& printer = host.printer();
    printer.serial = std::string(100000, ' ');
    printer.deviceId = "MFG:" + std::string(100000, ' ');
    const auto texts = list();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_LE(texts[0].size(), 6U + 3 * 255 + 1 + 3 * 255 + 8 + 255);
    printer.deviceId.reset();
    printer.vendorName = printer.productName = std::string(100000, ' ');
    ASSERT_EQ(list().size(), 1U);
    EXPECT_EQ(list()[0].size(), 6U + 3 * 255 + 1 + 3 * 255 + 8 + 255);
}

TEST_F(UsbPorts, LieInOneBlockAfterTheirRecords)
{
    host.printer();
    host.printer();
    _PORT_INFO_1A* ports = nullptr;
    ASSERT_EQ(DevConnMgr::Instance()->EnumUsbPort(&ports), 2);
    EXPECT_EQ(ports[0].m_portName, reinterpret_cast<char*>(ports + 2));
    EXPECT_EQ(ports[1].m_portName, ports[0].m_portName + std::strlen(ports[0].m_portName) + 1);
    DevConnMgr::Instance()->FreeUsbPort(ports);
}

TEST_F(UsbPorts, StayInTheirBlockThoughTheBusChangesBetweenThePasses)
{
    const struct {
        const char* why;
        std::function<void()> change;
        Texts texts;
    } rows[] = {
        {"one more", [&] { host.printer(); }, Texts(2, "usb://Acme/P1?serial=S1")},
        {"a longer name",
         [&] { host.printers()[0].serial = std::string(200, 'x'); },
         {"", "usb://Acme/P1?serial=S1"}},
        {"one gone", [&] { host.printers().pop_back(); }, {"usb://Acme/P1?serial=S1", ""}},
        {"all gone", [&] { host.printers().clear(); }, {"", ""}},
        {"the bus unreadable", [&] { host.failWalks(); }, {"", ""}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        host.printers().clear();
        host.printer();
        host.printer();
        host.beforeWalk(1, row.change);
        EXPECT_EQ(list(), row.texts);
    }
}

TEST_F(UsbPorts, AreAnEmptyListWhenMemoryRunsOut)
{
    host.printer();
    auto& manager = *DevConnMgr::Instance();
    int allowed = 0;
    for (; allowed < 200; ++allowed) {
        _PORT_INFO_1A* ports = nullptr;
        long count = 0;
        {
            const MemoryShortage shortage(allowed);
            count = manager.EnumUsbPort(&ports);
        }
        EXPECT_EQ(ports != nullptr, count == 1);
        manager.FreeUsbPort(ports);
        if (count == 1)
            break;
    }
    EXPECT_GE(allowed, 1);
    EXPECT_LT(allowed, 200);
}

TEST_F(UsbPorts, AreOpenedOrLeftClosedAtEveryShortageOfMemory)
{
    describe("DEVICEIDMODELNAME P1\r\n");
    auto& printer = host.printer();
    auto& manager = *DevConnMgr::Instance();
    void* handle = nullptr;
    long result = -1;
    int allowed = 0;
    for (; result != 0 && allowed < 200; ++allowed) {
        {
            const MemoryShortage shortage(allowed);
            result = manager.Connect(nullptr, "usb://Acme/P1?serial=S1", 0, 0, &handle);
        }
        EXPECT_TRUE(result == 0 || result == conn::kNoTransport || result == conn::kCannotOpen);
        EXPECT_EQ(printer.open, result == 0 ? 1 : 0);
    }
    EXPECT_GT(allowed, 5);
    EXPECT_EQ(manager.Disconnect(handle), 0);
    describe("");
}

TEST_F(UsbPorts, LeadToTheirPrinters)
{
    describe("DEVICEIDMODELNAME P1\r\n");
    host.printer();
    const auto port = list().at(0);
    auto& manager = *DevConnMgr::Instance();
    void* handle = nullptr;
    ASSERT_EQ(manager.Connect(nullptr, port.c_str(), 0, 0, &handle), 0);
    char* model = nullptr;
    unsigned long length = 0;
    EXPECT_EQ(manager.GetModelName(handle, &model, &length), 0);
    EXPECT_STREQ(model, "P1");
    EXPECT_EQ(manager.DisposeData(handle, model), 0);
    EXPECT_EQ(manager.Disconnect(handle), 0);
    EXPECT_EQ(host.printers()[0].open, 0);
    describe("");
}
