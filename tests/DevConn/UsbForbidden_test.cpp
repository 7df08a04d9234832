// SPDX-License-Identifier: MIT
#include "DevConn/DevConnMgr.h"
#include "DevConn/UsbDeviceId.h"
#include "DevConn/UsbForbidden.h"
#include "tests/support/ScriptedUsbHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

class UsbForbidden : public testing::Test {
protected:
    ScriptedPrinter& forbidden(const char* serial)
    {
        auto& printer = host.printer();
        printer.forbidden = true;
        printer.serial = serial;
        return printer;
    }
    std::vector<std::string> ports()
    {
        std::vector<std::string> found;
        for (const auto& printer : usbForbidden::printers(host))
            found.push_back(printer.m_port);
        return found;
    }
    ScriptedUsbHost host;
};

} // namespace

TEST_F(UsbForbidden, NamesThePrintersThatMayNotBeOpenedAndSendsThemNothing)
{
    host.printer().serial = "open to all";
    auto& printer = forbidden("S2");
    const auto found = usbForbidden::printers(host);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].m_vendor, "Record Vendor");
    EXPECT_EQ(found[0].m_product, "Record Product");
    EXPECT_EQ(found[0].m_serial, "S2");
    EXPECT_EQ(found[0].m_port, "usb://Record%20Vendor/Record%20Product?serial=S2");
    EXPECT_EQ(printer.attempts, 0);
    EXPECT_TRUE(printer.requests.empty());
}

TEST_F(UsbForbidden, HasThePortStringOfTheListOfAllPrinters)
{
    auto& printer = forbidden("S2");
    ScriptedInterface found(printer, host.time);
    std::string url;
    EXPECT_TRUE(DevConnMgr::MacUSBPortURL(found, url));
    EXPECT_THAT(ports(), testing::ElementsAre(url));
}

TEST_F(UsbForbidden, LeavesOutWhatIsNoPrinterOfTheMaker)
{
    forbidden("another maker's").vendorId = 1;
    forbidden("a scanner").interfaceClass = 255;
    EXPECT_THAT(ports(), testing::IsEmpty());
    host.failWalks();
    forbidden("nobody can see");
    EXPECT_THAT(ports(), testing::IsEmpty());
}

TEST_F(UsbForbidden, NamesADeviceWithTwoPrinterInterfacesOnce)
{
    forbidden("S1");
    forbidden("S1");
    forbidden("S2");
    const auto found = usbForbidden::printers(host);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].m_interfaces, 2U);
    EXPECT_EQ(found[1].m_interfaces, 1U);
}

TEST_F(UsbForbidden, ListsPrintersWithoutNamesOneByOne)
{
    for (int i = 0; i < 2; ++i) {
        auto& printer = forbidden("");
        printer.serial = printer.vendorName = printer.productName = std::nullopt;
    }
    forbidden("S1").parent = false;
    EXPECT_THAT(ports(), testing::Each(std::string("usb:///?serial=")));
    EXPECT_EQ(ports().size(), 3U);
}

TEST_F(UsbForbidden, CutsTextsAtTheirFirstNulAndAtTheirLength)
{
    forbidden("S1").vendorName = std::string("Acme\0more", 9);
    forbidden("S2").productName = std::string(1000, 'x');
    const auto found = usbForbidden::printers(host);
    EXPECT_EQ(found.at(0).m_vendor, "Acme");
    EXPECT_EQ(found.at(1).m_product.size(), 255U);
}

TEST_F(UsbForbidden, FindsThePrinterOfAPortString)
{
    host.printer().serial = "S1";
    forbidden("S2");
    EXPECT_TRUE(usbForbidden::holds(host, "usb://Acme/P1?serial=S2"));
    EXPECT_FALSE(usbForbidden::holds(host, "usb://Acme/P1?serial=S1"));
    EXPECT_FALSE(usbForbidden::holds(host, "usb://Acme/P1?serial=S3"));
    EXPECT_FALSE(usbForbidden::holds(host, "usb://Acme/P1"));
}

TEST_F(UsbForbidden, IsNotTriedAgain)
{
    auto& printer = forbidden("S1");
    ScriptedInterface found(printer, host.time);
    std::unique_ptr<UsbConnection> connection;
    EXPECT_EQ(usbDeviceId::open(found, connection), UsbStatus::notPermitted);
    EXPECT_EQ(printer.attempts, 1);
}

TEST(PermissionRule, IsForPrintersOfTheMakerAndGivesTheSeatsUsersAccess)
{
    char vendor[5] = {};
    std::snprintf(vendor, sizeof vendor, "%04x", unsigned{usbPrinterSearch::makersVendorId()});
    EXPECT_EQ(usbForbidden::permissionRule(),
              "SUBSYSTEM==\"usb\", ENV{DEVTYPE}==\"usb_device\", ATTR{idVendor}==\""
                  + std::string(vendor)
                  + "\", ENV{ID_USB_INTERFACES}==\"*:0701??:*\", TAG+=\"uaccess\"");
}
