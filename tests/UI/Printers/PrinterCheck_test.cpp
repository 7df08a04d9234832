// SPDX-License-Identifier: MIT
#include "UI/Printers/PrinterCheck.h"
#include "VYM/vymParse.h"
#include "tests/support/ScriptedModels.h"
#include "tests/support/ScriptedUsbHost.h"

#include <gtest/gtest.h>

TEST(PrinterRule, ComesFromThePackage)
{
    const std::string text = "TGMNAME P1\r\nDRIVERNAME \"Driver 100\" \"Driver 200\"\r\n"
                             "DEVICEIDMODELNAME \"P 1\" \"P 2\"\r\n";
    g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
    const auto rule = packagedPrinterRule();
    EXPECT_EQ(rule.driverPrefixes, (std::vector<std::string>{"Driver 100", "Driver 200"}));
    EXPECT_EQ(rule.exactModels, (std::vector<std::string>{"P 1", "P 2"}));
    EXPECT_EQ(rule.modelPrefix, "P1");
}

TEST(PrinterRule, TakesADriverThatBeginsWithOneOfItsNames)
{
    const PrinterRule rule{{"Driver 1", "Other", ""}, {}, ""};
    for (const char* good : {"Driver 1", "Driver 100 v2", "Other"})
        EXPECT_TRUE(isOfDriver(rule, good)) << good;
    for (const char* bad : {"", "Driver", "driver 1", "My Driver 1"})
        EXPECT_FALSE(isOfDriver(rule, bad)) << bad;
    EXPECT_FALSE(isOfDriver({}, "Driver 1"));
}

TEST(PrinterRule, ExactModelsComeBeforeThePrefix)
{
    const PrinterRule exact{{}, {"P1", "P2"}, "P"};
    EXPECT_TRUE(isOfModel(exact, "P2"));
    for (const char* bad : {"P", "P3", "P11", ""})
        EXPECT_FALSE(isOfModel(exact, bad)) << bad;
    const PrinterRule prefix{{}, {}, "P1"};
    EXPECT_TRUE(isOfModel(prefix, "P1"));
    EXPECT_TRUE(isOfModel(prefix, "P11"));
    EXPECT_FALSE(isOfModel(prefix, "P"));
    EXPECT_FALSE(isOfModel({}, "P1"));
}

TEST(SerialKey, IsTheTailAfterTheFirstCharacter)
{
    const struct {
        const char* port;
        std::optional<std::string> key;
    } rows[] = {
        {"usb://A/P?serial=12", "serial=12"},
        {"usb://A/P?serial=", "serial="},
        {"usb://A/P?serial=12&interface=1", "serial=12&interface=1"},
        {"usb://A/P?serial=1?serial=2", "serial=1?serial=2"},
        {"?serial=1", "serial=1"},
        {"serial=1", std::nullopt},
        {"usb://A/P?Serial=1", std::nullopt},
        {"usb://A/P", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(serialKey(row.port), row.key) << row.port;
}

TEST(ProductOfAPort, IsNamedWithoutEscapes)
{
    EXPECT_EQ(productOf("usb://Acme/P1?serial=1"), "P1");
    EXPECT_EQ(productOf("usb://A%2FB/P%201%2f2%28x%29?serial=1"), "P 1/2(x)");
    EXPECT_EQ(productOf("usb://A/50%"), "50%");
    EXPECT_EQ(productOf("usb://A/%zz%4"), "%zz%4");
    for (const char* none : {"", "usb://", "usb://A", "lpd://A/P", "usb://A/?serial=1"})
        EXPECT_EQ(productOf(none), "") << none;
}

TEST(UsbPort, IsAnyTextThatConnectionsTakeForOne)
{
    EXPECT_TRUE(isUsbPort("usb://A/P?serial=1"));
    EXPECT_TRUE(isUsbPort("lpd://usb/"));
    EXPECT_FALSE(isUsbPort("USB://A/P?serial=1"));
    EXPECT_FALSE(isUsbPort("lpd://10.0.0.5/"));
}

TEST(AskedDevice, ReportsItsModelAndGetsEverythingBack)
{
    ScriptedModels usb;
    usb.models["usb://A/P?serial=1"] = "P1";
    EXPECT_EQ(askForModel("usb://A/P?serial=1"), "P1");
    EXPECT_EQ(usb.ports.size(), 1U);
    EXPECT_EQ(usb.open, 0);
    EXPECT_EQ(usb.kept, 0);
}

TEST(AskedDevice, WithoutAnAnswerIsClosedNevertheless)
{
    ScriptedModels usb;
    usb.silent = {"usb://A/P?serial=1"};
    usb.nameless = {"usb://A/P?serial=2"};
    for (const char* port : {"usb://A/P?serial=1", "usb://A/P?serial=2", "usb://A/P?serial=3"})
        EXPECT_EQ(askForModel(port), std::nullopt) << port;
    EXPECT_EQ(usb.ports.size(), 3U);
    EXPECT_EQ(usb.open, 0);
}

TEST(AskedDevice, IsTheRealOneOnTheBus)
{
    const std::string text = "TGMNAME P1\r\n";
    g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
    ScriptedUsbHost host;
    host.printer();
    EXPECT_EQ(askForModel("usb://Acme/P1?serial=S1"), "P1");
    EXPECT_EQ(askForModel("usb://Acme/P1?serial=S2"), std::nullopt);
    EXPECT_EQ(host.printers()[0].open, 0);
}

TEST(AskedDevice, WithoutAHostForUsbDoesNotAnswer)
{
    EXPECT_EQ(askForModel("usb://Acme/P1?serial=S1"), std::nullopt);
}
