// SPDX-License-Identifier: MIT
// Whole command lines with a printer's queue or port string.
#include "tests/CLI/PrintersRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

TEST(PrinterByName, IsFoundWithoutCaseAsPrintServersDo)
{
    Printers run;
    run.worker.report = {1, "Model 100", {}};
    EXPECT_EQ(run.check("--printer", "oFFICE"), 2);
    EXPECT_EQ(run.worker.port, "lpd://10.0.0.5/q/");
    run.server.queue("OFFICE", "lpd://10.0.0.7/q", "Driver 100 PS");
    EXPECT_EQ(run.check("--printer", "OFFICE"), 2); // an exact match
    EXPECT_EQ(run.worker.port, "lpd://10.0.0.7/q/");
    EXPECT_EQ(run.check("--printer", "oFFICE"), 68);
    EXPECT_THAT(run.out, HasSubstr("several-printers"));
}

TEST(PrinterByName, IsTheQueuesIdentifierFirst)
{
    Printers run;
    run.server.queue("Office-id", "lpd://10.0.0.9/q");
    run.check("--printer", "Office-id");
    EXPECT_EQ(run.worker.port, "lpd://10.0.0.5/q/");
    EXPECT_EQ(run.worker.queue, "Office-id");
    EXPECT_THAT(run.out, HasSubstr(R"("address":"lpd://10.0.0.5/q/","printer_name":"Office",)"));
    run.check("--printer", "Home");
    EXPECT_EQ(run.worker.port, "lpd://10.0.0.6/");
    EXPECT_EQ(run.worker.queue, "Home-id");
}

TEST(PrinterByName, MayBeOnUsb)
{
    Printers run;
    run.usbPrinter("12");
    run.usbPrinter("13");
    run.server.queue("Cable", usbPort("12"));
    run.check("--printer", "Cable");
    EXPECT_EQ(run.worker.port, usbPort("12"));
    EXPECT_EQ(run.worker.queue, "Cable-id");
    run.check("--printer", "USB Printer");
    EXPECT_EQ(run.worker.port, usbPort("13"));
    EXPECT_EQ(run.worker.queue, std::nullopt);
    EXPECT_EQ(run.bus.printers()[1].open, 0);
}

TEST(PrinterByName, IsRefusedWhenItFitsNoneOrSeveralOrOneThatCannotBeUpdated)
{
    const struct {
        const char* name;
        const char* result;
        const char* message;
    } rows[] = {
        {"Nobody", "no-such-printer", "No printer is called 'Nobody'."},
        {"", "no-such-printer", "No printer is called ''."},
        {"\x1b", "no-such-printer", "'\\\\x1b'"},
        {"elsewhere", "no-such-printer", "'elsewhere'"},
        {"Twin", "several-printers",
         "fits several printers: Twin-id (lpd://10.0.1.1/), Twin-id (lpd://10.0.1.2/)"},
        {"Socket", "unsuitable-printer",
         "'Socket' cannot be updated: it is not connected by USB or, over IPv4, by LPD: give its"},
        {"Office again", "unsuitable-printer", "it is the same device as Office."},
        {"Long", "unsuitable-printer", "longer than the 255 bytes"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        AllPrinters run;
        run.server.queue("Twin", "lpd://10.0.1.1/");
        run.server.queue("Twin", "lpd://10.0.1.2/");
        run.server.queue("Long", "lpd://" + std::string(250, 'a'));
        EXPECT_EQ(run.check("--printer", row.name), 68);
        EXPECT_THAT(run.out, HasSubstr("\"name\":\"" + std::string(row.result) + "\""));
        EXPECT_THAT(run.out, HasSubstr(row.message));
        EXPECT_EQ(run.runOnPackage({"update", "--printer", row.name, "--yes"}), 68);
        EXPECT_THAT(run.err, HasSubstr("No printer: "));
        EXPECT_EQ(run.worker.portNumber, 0);
    }
}

TEST(PrinterByName, IsNotKnownIfThePrintServerCannotBeQueried)
{
    Printers run;
    run.usbPrinter("12");
    run.server.refuse("It is not running.");
    EXPECT_EQ(run.check("--printer", "Office"), 69);
    EXPECT_THAT(run.out, HasSubstr(R"("name":"print-server-unreachable")"));
    EXPECT_THAT(run.out, HasSubstr("could not be asked: It is not running."));
    run.check("--printer", "USB Printer");
    EXPECT_EQ(run.worker.port, usbPort("12"));
}

TEST(PrinterByPortString, GoesToTheEngineAsConnectionsTakeIt)
{
    const struct {
        const char* given;
        const char* address;
        bool hasIdentifier;
    } rows[] = {
        {"net:10.0.0.5", "lpd://10.0.0.5/", true},
        {"lpd://office/queue", "lpd://office/queue/", true},
        {"usb://Acme/P?serial=1", "usb://Acme/P?serial=1", false},
    };
    for (const auto& row : rows) {
        Printers run;
        run.check("--uri", row.given);
        EXPECT_EQ(run.worker.port, row.address);
        EXPECT_EQ(run.worker.queue.has_value(), row.hasIdentifier);
        EXPECT_THAT(run.out, HasSubstr(R"("printer_name":null)"));
        EXPECT_EQ(run.server.asked, 0);
    }
    Printers run;
    EXPECT_EQ(run.check("--uri", "lpd://" + std::string(300, 'a')), 68);
    EXPECT_EQ(run.worker.portNumber, 0);
}

TEST(PrinterByPortString, ThatMayNotBeOpenedComesWithTheRuleThatAllowsIt)
{
    Printers run;
    auto& forbidden = run.usbPrinter("12");
    forbidden.forbidden = true;
    forbidden.opens = false;
    EXPECT_EQ(run.runOnPackage({"update", "--uri", usbPort("12"), "--yes"}), 16);
    EXPECT_THAT(run.err, HasSubstr("Failed (not permitted): This user may not open"));
    EXPECT_THAT(run.err, HasSubstr("/etc/udev/rules.d/70-vymkit.rules"));
    EXPECT_THAT(run.err, HasSubstr("TAG+=\"uaccess\""));
    EXPECT_EQ(run.check("--uri", usbPort("12")), 16);
    EXPECT_THAT(run.out, HasSubstr(R"("name":"connection-lost")"));
    EXPECT_THAT(run.out, HasSubstr(R"("udev_rule":{"file":"/etc/udev/rules.d/70-vymkit.rules")"));
    EXPECT_EQ(run.check("--uri", usbPort("13")), 16);
    EXPECT_THAT(run.out, HasSubstr(R"("udev_rule":null)"));
    EXPECT_THAT(run.out, HasSubstr("There is no connection to the printer"));
}
