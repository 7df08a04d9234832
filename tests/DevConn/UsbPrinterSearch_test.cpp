// SPDX-License-Identifier: MIT
#include "DevConn/UsbPrinterSearch.h"
#include "VYM/vymParse.h"
#include "tests/support/ScriptedUsbHost.h"

#include <gtest/gtest.h>

namespace {

void describe(const std::string& text)
{
    g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
}

std::uint16_t swapped(std::uint16_t id)
{
    return static_cast<std::uint16_t>(id << 8 | id >> 8);
}

class UsbPrinterSearch : public testing::Test {
protected:
    UsbPrinterSearch() { describe("DEVICEIDMODELNAME P1 P2\r\n"); }
    ~UsbPrinterSearch() override { describe(""); }
    UsbPrinterSearch(const UsbPrinterSearch&) = delete;
    UsbPrinterSearch& operator=(const UsbPrinterSearch&) = delete;

    bool finds(const char* port = "usb://Acme/P1?serial=S1")
    {
        return usbPrinterSearch::findPrinter(host, port) != nullptr;
    }
    ScriptedUsbHost host;
};

} // namespace

TEST_F(UsbPrinterSearch, TakesThePrinterInterfacesOfTheMakerInEitherByteOrder)
{
    const auto maker = usbPrinterSearch::makersVendorId();
    const struct {
        const char* why;
        std::optional<std::uint16_t> vendor;
        std::optional<std::uint8_t> interfaceClass;
        bool isOne;
    } rows[] = {
        {"the maker's", maker, 7, true},
        {"its bytes the other way round", swapped(maker), 7, true},
        {"another maker", static_cast<std::uint16_t>(maker + 1), 7, false},
        {"no vendor", std::nullopt, 7, false},
        {"a mass storage interface", maker, 8, false},
        {"no class", maker, std::nullopt, false},
    };
    auto& printer = host.printer();
    ScriptedInterface found(printer, host.time);
    for (const auto& row : rows) {
        printer.vendorId = row.vendor;
        printer.interfaceClass = row.interfaceClass;
        EXPECT_EQ(usbPrinterSearch::isMakersPrinter(found), row.isOne) << row.why;
        EXPECT_EQ(finds(), row.isOne) << row.why;
    }
}

TEST(UsbModelMatch, FollowsThePackagesDescription)
{
    const struct {
        const char* description;
        const char* model;
        bool matches;
    } rows[] = {
        {"DEVICEIDMODELNAME P1 P2", "P1", true},
        {"DEVICEIDMODELNAME P1 P2", "P2", true},
        {"DEVICEIDMODELNAME P1 P2", "p1", false},
        {"DEVICEIDMODELNAME P1 P2", "P1 ", false},
        {"DEVICEIDMODELNAME P1 P2", "P", false},
        {"DEVICEIDMODELNAME P1 P2", "", false},
        {"DEVICEIDMODELNAME P1\r\nTGMNAME P7", "P7", false},
        {"DEVICEIDMODELNAME \"P 1 (x)\"", "P 1 (x)", true},
        {"TGMNAME P1", "P1", true},
        {"TGMNAME P1", "P1 (GDI)", true},
        {"TGMNAME P1", "P1(GDI) x", true},
        {"TGMNAME P1", "P1 series", true},
        {"TGMNAME P1", "P10", false},
        {"TGMNAME P1", "p1", false},
        {"TGMNAME P1", " P1", false},
        {"TGMNAME P1", "", false},
        {"TGMNAME \"P 1\"", "P 1", false},
        {"PORTNO 1", "P1", false},
        {"", "", false},
    };
    for (const auto& row : rows) {
        describe(std::string(row.description) + "\r\n");
        EXPECT_EQ(usbPrinterSearch::isModelOfPackage(row.model), row.matches)
            << row.description << ": " << row.model;
    }
    describe("");
}

TEST_F(UsbPrinterSearch, ComparesTheSerialOfThePort)
{
    auto& printer = host.printer();
    EXPECT_TRUE(finds());
    EXPECT_FALSE(finds("usb://Acme/P1?serial=S2"));
    EXPECT_FALSE(finds("usb://Acme/P1?serial=s1"));
    EXPECT_FALSE(finds("usb://Acme/P1?serial=S10"));
    printer.serial = std::string("S1\0garbage", 10);
    EXPECT_TRUE(finds()) << "a text ends at its NUL";
    printer.serial.reset();
    EXPECT_FALSE(finds());
    printer.serial = "";
    EXPECT_TRUE(finds("usb://Acme/P1?serial="));
    printer.serial = std::string(4000, '7');
    EXPECT_TRUE(finds(("usb://Acme/P1?serial=" + std::string(255, '7')).c_str()));
}

TEST_F(UsbPrinterSearch, QueriesNoSerialIfTheDeviceIsNotFound)
{
    auto& printer = host.printer();
    printer.parent = false;
    printer.serial.reset();
    EXPECT_TRUE(finds("usb://Acme/P1?serial=any"));
    printer.deviceId = "MFG:Acme;MDL:P9;";
    EXPECT_FALSE(finds("usb://Acme/P1?serial=any")) << "the model still has to fit";
}

TEST_F(UsbPrinterSearch, TakesTheFirstMatch)
{
    host.printer().vendorId = 1;
    host.printer().deviceId.reset();
    host.printer().serial = "S0";
    host.printer().deviceId = "MFG:Acme;MDL:P9;";
    host.printer().deviceId = "MFG:Acme;MDL:P2;";
    host.printer();
    const auto found = usbPrinterSearch::findPrinter(host, "usb://Acme/P1?serial=S1");
    ASSERT_NE(found, nullptr);
    std::unique_ptr<UsbConnection> connection;
    ASSERT_EQ(found->open(connection), UsbStatus::ok);
    EXPECT_EQ(host.printers()[4].open, 1);
    EXPECT_EQ(host.printers()[5].attempts, 0) << "the search has ended";
    EXPECT_EQ(host.printers()[0].attempts, 0) << "others' devices are left alone";
}

TEST_F(UsbPrinterSearch, FindsNothingOnABusThatIsEmptyOrUnreadable)
{
    EXPECT_FALSE(finds());
    host.printer();
    EXPECT_FALSE(finds("usb"));
    EXPECT_EQ(host.printers()[0].attempts, 0) << "no printer is opened for an invalid port";
    host.failWalks();
    EXPECT_FALSE(finds());
}
