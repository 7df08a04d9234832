// SPDX-License-Identifier: MIT
#include "UI/Support/UsbSurvey.h"
#include "tests/UI/Support/SurveyedBus.h"

#include <gtest/gtest.h>

TEST(UsbSurvey, ReadsAPrinterFromTheKernelsFiles)
{
    const auto printers = SurveyedBus().survey();
    ASSERT_EQ(printers.size(), 1U);
    EXPECT_EQ(printers[0].product, "Vymprint 200");
    EXPECT_EQ(printers[0].serial, "S77");
    EXPECT_EQ(printers[0].node, "/dev/bus/usb/001/012");
    EXPECT_TRUE(printers[0].isOpenable);
    EXPECT_FALSE(printers[0].isTagged);
    EXPECT_TRUE(printers[0].holders.empty());
}

TEST(UsbSurvey, NamesTheProgramThatHasThePrinterOpen)
{
    SurveyedBus bus;
    bus.put("proc/41/comm", "ipp-usb\n");
    bus.link("proc/41/fd/7", "/dev/bus/usb/001/012");
    bus.link("sys/bus/usb/devices/1-2:1.0/driver", "../../drivers/usblp");
    EXPECT_EQ(bus.survey()[0].holders, std::vector<std::string>{"ipp-usb (process 41)"});
    EXPECT_EQ(bus.survey()[0].driver, "usblp");
}

TEST(UsbSurvey, SeesThatTheRuleHasReachedThePrinter)
{
    SurveyedBus bus;
    bus.put("run/udev/data/c189:11", "E:ID_MODEL=x\nG:uaccess\n");
    EXPECT_TRUE(bus.survey()[0].isTagged);
}

TEST(UsbSurvey, PassesOverOtherMakersAndOtherDevices)
{
    SurveyedBus bus;
    EXPECT_TRUE(bus.survey("04b8").empty());
    bus.put("sys/bus/usb/devices/1-2:1.0/bInterfaceClass", "08\n");
    EXPECT_TRUE(bus.survey().empty());
}

TEST(UsbSurvey, NamesTheProgramsThatHaveThePrinterOfAPortStringOpen)
{
    SurveyedBus bus;
    const auto holders = [&bus](const std::string& port) {
        return holdersOfPort(port, "1209", bus.root());
    };
    EXPECT_EQ(holders("usb://Acme/P1?serial=S77"), "");
    bus.put("proc/41/comm", "usb\n");
    bus.link("proc/41/fd/7", "/dev/usb/lp0");
    bus.put("sys/bus/usb/devices/1-2:1.0/usbmisc/lp0/dev", "180:0\n");
    EXPECT_EQ(holders("usb://Acme/P1?serial=S77"), "usb (process 41)");
    bus.put("proc/42/comm", "ipp-usb\n");
    bus.link("proc/42/fd/3", "/dev/bus/usb/001/012");
    EXPECT_EQ(holders("usb://Acme/P1?serial=S77"), "usb (process 41), ipp-usb (process 42)");
    EXPECT_EQ(holders("usb://Acme/P1?serial=S7"), "");
    EXPECT_EQ(holders("lpd://192.0.2.7/S77"), "");
    EXPECT_EQ(holders(""), "");
}
