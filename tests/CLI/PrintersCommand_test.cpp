// Whole command lines that list printers, or that name one by its queue or its port string.
#include "VYM/vymParse.h"
#include "tests/CLI/CommandRun.h"
#include "tests/support/ScriptedUsbHost.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr unsigned kUntilSeen = 200000; // microseconds; what another thread reacts to at once

std::string port(const std::string& serial)
{
    return "usb://Acme/Model%20100?serial=" + serial;
}

// Two queues for two printers, and on the bus a printer of the package's model: the one that the
// test named first has no queue.
class Printers : public CommandRun {
public:
    Printers()
    {
        const std::string text = "DEVICEIDMODELNAME \"Model 100\"\r\n";
        g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
        server.queue("Office", "lpd://10.0.0.5/q", "Driver 100 PS");
        server.queue("Home", "net:10.0.0.6", "Driver 100 PS");
    }
    ScriptedPrinter& usbPrinter(const std::string& serial)
    {
        auto& printer = bus.printer();
        printer.serial = serial;
        printer.deviceId = "MFG:Acme;CMD:X;MDL:Model 100;";
        return printer;
    }
    int list(std::vector<std::string> words = {})
    {
        words.insert(words.begin(), "printers");
        return runOnPackage(words);
    }
    int check(const std::string& option, const std::string& value)
    {
        return runOnPackage({"check", option, value, "--json"});
    }
    ScriptedUsbHost bus;
};

// One queue for each reason, on a bus with a printer of each.
class AllPrinters : public Printers {
public:
    AllPrinters()
    {
        server.queue("Silent", "lpd://10.0.0.7").makeAndModel.reset();
        server.queue("Other", "lpd://10.0.0.8", "Another driver");
        server.queue("Nowhere", "").deviceUri.reset();
        server.queue("Socket", "socket://10.0.0.9");
        server.queue("Six", "net6:::1");
        server.queue("Driver", "tzrq:office");
        server.queue("Bonjour", "mdns:office");
        server.queue("Nameless", "usb://Acme/P");
        server.queue("Office again", "lpd://10.0.0.5/q");
        server.queue("Off", port("77"));
        usbPrinter("12");
        usbPrinter("13").deviceId = "MFG:Acme;CMD:X;MDL:Model 9;";
        auto& forbidden = usbPrinter("14");
        forbidden.forbidden = true;
        forbidden.opens = false;
    }
};

} // namespace

TEST(PrintersCommand, ListsThoseThatCanBeUpdated)
{
    AllPrinters run;
    EXPECT_EQ(run.list(), 0);
    expectGolden("printers.txt", run.out);
    EXPECT_EQ(run.list({"--json"}), 0);
    expectGolden("printers.json", run.out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.worker.workers, 0);
}

TEST(PrintersCommand, ShowsWhomItWaitsFor)
{
    Printers run;
    run.server.whileAsked = [] { usleep(kUntilSeen); };
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, StartsWith("Asking the print server\n"));
    run.bus.beforeWalk(0, [] { usleep(kUntilSeen); });
    run.server.whileAsked = [] {};
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, HasSubstr("Looking for printers on USB\n"));
    run.server.queue("Cable", port("12"));
    run.bus.beforeWalk(0, [] { usleep(kUntilSeen); });
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, HasSubstr("Asking Cable (usb://Acme/Model%20100?serial=12)\n"));
}

TEST(PrintersCommand, GivesTheReasonOfEveryOther)
{
    AllPrinters run;
    EXPECT_EQ(run.list({"--all", "--quiet"}), 0);
    expectGolden("printers-all.txt", run.out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.list({"--all", "--json"}), 0);
    expectGolden("printers-all.json", run.out);
}

TEST(PrintersCommand, WarnsOfWhatWouldGoWrongWithACandidate)
{
    Printers run;
    run.server.queue("Six", "lpd://[2001:db8::1]/q", "Driver 100 PS");
    run.server.queue("Long", "lpd://" + std::string(260, 'a'), "Driver 100 PS");
    run.server.queue("Office two", "lpd://10.0.0.5:515/other", "Driver 100 PS");
    run.server.queue("Socket", "socket://10.0.0.9", "Driver 100 PS");
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.out, HasSubstr("its address is an IPv6 one"));
    EXPECT_THAT(run.out, HasSubstr("its address is too long for a connection"));
    EXPECT_THAT(run.out, HasSubstr("it leads to the same host as Office\n"));
    EXPECT_EQ(run.list({"--all", "--json"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"("warning":"it leads to the same host as Office"})"));
    EXPECT_THAT(run.out, HasSubstr("by LPD: give its IPv4 address with --address"));
}

TEST(PrinterByName, IsFoundWithoutCaseAsPrintServersDo)
{
    Printers run;
    run.worker.report = {1, "Model 100", {}};
    EXPECT_EQ(run.check("--printer", "oFFICE"), 2);
    EXPECT_EQ(run.worker.port, "lpd://10.0.0.5/q/");
    run.server.queue("OFFICE", "lpd://10.0.0.7/q", "Driver 100 PS");
    EXPECT_EQ(run.check("--printer", "OFFICE"), 2); // exactly so
    EXPECT_EQ(run.worker.port, "lpd://10.0.0.7/q/");
    EXPECT_EQ(run.check("--printer", "oFFICE"), 68);
    EXPECT_THAT(run.out, HasSubstr("several-printers"));
}

TEST(PrintersCommand, SaysThatThereIsNone)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"printers"}), 0);
    EXPECT_EQ(run.out, "Printers: none can be updated from this package.\n");
    EXPECT_EQ(run.runOnPackage({"printers", "--json"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"("printers":[],"udev_rule":null,)"));
}

TEST(PrintersCommand, ListsUsbWhereThePrintServerCannotBeAsked)
{
    Printers run;
    run.usbPrinter("12");
    run.server.refuse("it\x1b[2J is not running.");
    EXPECT_EQ(run.list({"--quiet"}), 69);
    expectGolden("printers-no-server.txt", run.out + run.err);
    EXPECT_EQ(run.list({"--json"}), 69);
    EXPECT_THAT(run.out, HasSubstr(R"("exit_code":69,"name":"print-server-unreachable")"));
    EXPECT_THAT(run.out, HasSubstr(R"("connection":"usb")"));
}

TEST(PrintersCommand, ShowsNoControlCharactersOfAPrintServer)
{
    Printers run;
    run.server.queue("\x1b[2J\xff", "lpd://\x9b/", "Driver 100\n");
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.out, HasSubstr("\\x1b[2J\\xff"));
    EXPECT_THAT(run.out, HasSubstr("Driver 100\\x0a"));
    EXPECT_THAT(run.out, HasSubstr("lpd://\\x9b/"));
}

TEST(PrintersCommand, ASignalStopsIt)
{
    Printers run;
    run.server.whileAsked = [] {
        kill(getpid(), SIGINT);
        usleep(kUntilSeen);
    };
    EXPECT_EQ(run.list({"--json"}), 130);
    EXPECT_THAT(run.out, HasSubstr(R"("command":"printers","exit_code":130,"name":"stopped")"));
    EXPECT_THAT(run.out, HasSubstr("before it was known which printers there are"));
}

TEST(PrintersCommand, NeedsAPackage)
{
    CommandRun run;
    EXPECT_EQ(run.run({"printers", "--package", run.folder / "missing"}), 66);
    EXPECT_EQ(run.server.asked, 0);
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
    run.server.queue("Cable", port("12"));
    run.check("--printer", "Cable");
    EXPECT_EQ(run.worker.port, port("12"));
    EXPECT_EQ(run.worker.queue, "Cable-id");
    run.check("--printer", "USB Printer");
    EXPECT_EQ(run.worker.port, port("13"));
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

TEST(PrinterByName, IsNotKnownWhereThePrintServerCannotBeAsked)
{
    Printers run;
    run.usbPrinter("12");
    run.server.refuse("It is not running.");
    EXPECT_EQ(run.check("--printer", "Office"), 69);
    EXPECT_THAT(run.out, HasSubstr(R"("name":"print-server-unreachable")"));
    EXPECT_THAT(run.out, HasSubstr("could not be asked: It is not running."));
    run.check("--printer", "USB Printer");
    EXPECT_EQ(run.worker.port, port("12"));
}

TEST(PrinterByName, IsLeftAloneWhenTheLookingIsStopped)
{
    Printers run;
    run.server.whileAsked = [] {
        kill(getpid(), SIGTERM);
        usleep(kUntilSeen);
    };
    EXPECT_EQ(run.runOnPackage({"update", "--printer", "Office", "--yes"}), 130);
    EXPECT_THAT(run.err, HasSubstr("Stopped: You stopped the run before it was known"));
    EXPECT_EQ(run.worker.portNumber, 0);
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
    EXPECT_EQ(run.runOnPackage({"update", "--uri", port("12"), "--yes"}), 16);
    EXPECT_THAT(run.err, HasSubstr("Failed (not permitted): This user may not open"));
    EXPECT_THAT(run.err, HasSubstr("/etc/udev/rules.d/70-vymkit.rules"));
    EXPECT_THAT(run.err, HasSubstr("TAG+=\"uaccess\""));
    EXPECT_EQ(run.check("--uri", port("12")), 16);
    EXPECT_THAT(run.out, HasSubstr(R"("name":"connection-lost")"));
    EXPECT_THAT(run.out, HasSubstr(R"("udev_rule":{"file":"/etc/udev/rules.d/70-vymkit.rules")"));
    EXPECT_EQ(run.check("--uri", port("13")), 16);
    EXPECT_THAT(run.out, HasSubstr(R"("udev_rule":null)"));
    EXPECT_THAT(run.out, HasSubstr("There is no connection to the printer"));
}
