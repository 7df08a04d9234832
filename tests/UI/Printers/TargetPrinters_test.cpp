// SPDX-License-Identifier: MIT
#include "UI/Printers/TargetPrinters.h"
#include "VYM/vymParse.h"
#include "tests/support/ScriptedModels.h"
#include "tests/support/ScriptedPrintServer.h"
#include "tests/support/ScriptedUsbHost.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

std::string port(const std::string& serial, const std::string& product = "P1")
{
    return "usb://Acme/" + product + "?serial=" + serial;
}

// Every wait, in words.
class Listener : public PrinterSearchObserver {
public:
    void askingPrintServer() override { waits.emplace_back("print server"); }
    void askingDevice(const PrinterInfo& printer) override
    {
        waits.push_back(printer.printerName().value_or("?"));
    }
    void lookingOnUsb() override { waits.emplace_back("bus"); }
    Texts waits;
};

// A package for the model P1 and its driver, a print server without queues, an empty bus.
class TargetPrinterList : public testing::Test {
protected:
    TargetPrinterList()
    {
        search.rule = {{"Driver 100", "Driver 200"}, {}, "P1"};
        search.server = &server;
        search.usbPrinterName = "A USB printer";
        search.driverRoot = root.path().string();
        const std::string text = "TGMNAME P1\r\n";
        g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
    }
    const TargetPrinters& make()
    {
        made = makeTargetPrinterList(search, cancel, listener);
        return made;
    }
    Texts candidates()
    {
        Texts texts;
        for (const auto& each : make().candidates)
            texts.push_back(*each->printerName() + " " + *each->printerURI());
        return texts;
    }
    Texts names()
    {
        Texts texts;
        for (const auto& each : make().candidates)
            texts.push_back(*each->printerName());
        return texts;
    }
    // "NAME: REASON" of every printer that was checked.
    Texts findings()
    {
        Texts texts;
        for (const auto& each : make().findings)
            texts.push_back(each.printer->printerName().value_or("?") + ": "
                            + std::string(printerReasonName(each.reason)));
        return texts;
    }
    void driverAddress(const std::string& queueIdentifier, const std::string& devicePath)
    {
        const std::string folder = "Library/Printers/Morix/D/RLPD";
        std::filesystem::create_directories(root.path() / folder);
        m_configuration += "<Printer " + queueIdentifier + ">\nDevicePath " + devicePath + "\n";
        root.write(folder + "/rlpd.conf", m_configuration);
    }

    PrinterSearch search;
    ScriptedPrintServer server;
    ScriptedUsbHost host;
    TempFolder root;
    std::atomic<bool> cancel{false};
    Listener listener;
    TargetPrinters made;

private:
    std::string m_configuration;
};

} // namespace

TEST_F(TargetPrinterList, IsEmptyWhereThereIsNothing)
{
    EXPECT_THAT(candidates(), IsEmpty());
    EXPECT_THAT(made.findings, IsEmpty());
    EXPECT_EQ(made.serverProblem, "");
    EXPECT_FALSE(made.isCancelled);
    search.server = nullptr;
    EXPECT_THAT(candidates(), IsEmpty());
    EXPECT_EQ(server.asked, 1);
}

TEST_F(TargetPrinterList, HasQueuesInTheServersOrderThenUsbPrintersInTheBusOrder)
{
    server.queue("z", "lpd://10.0.0.5/");
    host.printer().serial = "9";
    host.printer().serial = "1";
    server.queue("usb", port("1"));
    server.queue("a", "net:10.0.0.6", "Driver 200 PS");
    EXPECT_THAT(candidates(),
                ElementsAre("z lpd://10.0.0.5/", "usb " + port("1"), "a net:10.0.0.6",
                            "A USB printer " + port("9")));
    EXPECT_EQ(made.candidates.back()->printerModel(), "P1");
    EXPECT_EQ(made.candidates.back()->printerID(), std::nullopt);
    EXPECT_EQ(made.candidates.front()->printerID(), "z-id");
}

TEST_F(TargetPrinterList, GivesTheOneReasonOfEveryQueueThatIsLeftOut)
{
    server.queue("no model", "lpd://10.0.0.1/").makeAndModel.reset();
    server.queue("other driver", "lpd://10.0.0.1/", "A Driver 100");
    server.queue("nowhere", "").deviceUri.reset();
    server.queue("socket", "socket://10.0.0.1");
    server.queue("IPv6", "net6:::1");
    server.queue("Bonjour", "mdns:office");
    server.queue("no serial", "usb://Acme/P1");
    server.queue("off", port("7"));
    server.queue("good", "lpd://10.0.0.1/");
    server.queue("good again", "lpd://10.0.0.1/");
    EXPECT_THAT(findings(),
                ElementsAre("no model: no-model", "other driver: other-driver",
                            "nowhere: no-device-uri", "socket: other-connection",
                            "IPv6: other-connection", "Bonjour: other-connection",
                            "no serial: no-serial", "off: no-answer", "good: candidate",
                            "good again: duplicate"));
    EXPECT_EQ(made.findings[9].sameAs, "good");
    EXPECT_EQ(made.findings[4].connectionType, kConnectionNet6);
    EXPECT_EQ(made.findings[0].connectionType, kConnectionNet);
    EXPECT_EQ(made.candidates.size(), 1U);
    EXPECT_EQ(made.candidates[0], made.findings[8].printer);
}

TEST_F(TargetPrinterList, TakesTheAddressOfADriversQueueFromItsConfiguration)
{
    driverAddress("office-id", "net:10.0.0.5/PDLType X");
    driverAddress("cable-id", port("S1"));
    driverAddress("six-id", "net6:::1");
    server.queue("office", "tzrq://office");
    server.queue("cable", "tzrq://cable");
    server.queue("six", "tzrq://six");
    server.queue("unknown", "tzrq://unknown");
    server.queue("unknown but plain", "tzrq:lpd://10.0.0.6/");
    server.queue("anonymous", "tzrq:lpd://10.0.0.7/").identifier.reset();
    host.printer();
    EXPECT_THAT(candidates(),
                ElementsAre("office net:10.0.0.5", "cable " + port("S1"),
                            "unknown but plain tzrq:lpd://10.0.0.6/",
                            "anonymous tzrq:lpd://10.0.0.7/"));
    EXPECT_EQ(made.findings[2].reason, PrinterReason::otherConnection);
    EXPECT_EQ(made.findings[3].reason, PrinterReason::otherConnection);
}

TEST_F(TargetPrinterList, QueriesNoNetworkQueue)
{
    server.queue("a", "lpd://10.0.0.5/");
    EXPECT_THAT(names(), ElementsAre("a"));
    EXPECT_THAT(listener.waits, ElementsAre("print server", "bus"));
}

// A port string that connections take for USB is queried there, where no network printer answers.
TEST_F(TargetPrinterList, LooksForANetworkQueueWithUsbInItsAddressOnTheBus)
{
    server.queue("a", "lpd://usb-printer/");
    EXPECT_THAT(findings(), ElementsAre("a: no-answer"));
    EXPECT_THAT(listener.waits, ElementsAre("print server", "a", "bus"));
}

TEST_F(TargetPrinterList, DropsANetworkQueueWhoseAddressIsContainedInAnEarlierOne)
{
    server.queue("long", "lpd://10.0.0.51/queue");
    server.queue("short", "lpd://10.0.0.5");
    EXPECT_THAT(names(), ElementsAre("long"));
    EXPECT_EQ(made.findings[1].sameAs, "long");
}

TEST_F(TargetPrinterList, KeepsBothWhereTheContainingOneComesLater)
{
    server.queue("short", "lpd://10.0.0.5");
    server.queue("long", "lpd://10.0.0.51/queue");
    EXPECT_THAT(names(), ElementsAre("short", "long"));
}

TEST_F(TargetPrinterList, ComparesAUsbQueueByItsSerialOnly)
{
    host.printer().serial = "12";
    host.printer().serial = "1";
    server.queue("first", "usb://Other/Name?serial=12");
    server.queue("same", port("12"));
    server.queue("front of it", port("1"));
    EXPECT_THAT(names(), ElementsAre("first"));
    EXPECT_THAT(findings(),
                ElementsAre("first: candidate", "same: duplicate", "front of it: duplicate",
                            "A USB printer: duplicate", "A USB printer: duplicate"));
}

TEST_F(TargetPrinterList, KeepsAUsbQueueWhoseSerialOnlyContainsAnEarlierOne)
{
    host.printer().serial = "12";
    host.printer().serial = "1";
    server.queue("short", port("1"));
    server.queue("long", port("12"));
    EXPECT_THAT(names(), ElementsAre("short", "long"));
}

// Only listed printers count: a queue that does not answer replaces no USB printer.
TEST_F(TargetPrinterList, AddsAUsbPrinterWhoseQueueIsLeftOut)
{
    host.printer();
    server.queue("foreign", port("S1"), "Another driver");
    EXPECT_THAT(candidates(), ElementsAre("A USB printer " + port("S1")));
}

TEST_F(TargetPrinterList, LeavesOutUsbPrintersWithoutAQueueForTheDriverOnly)
{
    host.printer().serial = "1";
    host.printer().serial = "2";
    server.queue("cable", port("2"));
    search.driverOnly = true;
    EXPECT_THAT(names(), ElementsAre("cable"));
    EXPECT_THAT(listener.waits, ElementsAre("print server", "cable"));
}

TEST_F(TargetPrinterList, LeavesOutAUsbPrinterWithoutASerial)
{
    host.printer().serial.reset();
    EXPECT_THAT(findings(), ElementsAre("A USB printer: no-serial"));
    EXPECT_THAT(candidates(), IsEmpty());
}

TEST_F(TargetPrinterList, DistinguishesADeviceOfAnotherModelFromASilentOne)
{
    host.printer().deviceId = "MFG:Acme;CMD:X;MDL:X9;";
    host.printer().serial = "2";
    host.printers()[1].deviceId.reset();
    host.printers()[1].productName = "P1";
    server.queue("other", port("S1", "anything"));
    server.queue("silent", port("2"));
    server.queue("gone", port("3"));
    EXPECT_THAT(findings(),
                ElementsAre("other: other-model", "silent: no-answer", "gone: no-answer",
                            "A USB printer: other-model", "A USB printer: no-answer"));
    EXPECT_EQ(made.findings[0].answeredModel, "X9");
    EXPECT_EQ(made.findings[2].answeredModel, "");
}

TEST_F(TargetPrinterList, ReportsAForbiddenDeviceOnce)
{
    auto& forbidden = host.printer();
    forbidden.forbidden = true;
    forbidden.opens = false;
    server.queue("cable", port("S1"));
    server.queue("gone", port("S2"));
    EXPECT_THAT(
        findings(),
        ElementsAre("cable: not-permitted", "gone: no-answer", "A USB printer: not-permitted"));
    EXPECT_THAT(made.candidates, IsEmpty());
    EXPECT_EQ(made.findings[2].printer->printerURI(),
              "usb://Record%20Vendor/Record%20Product?serial=S1");
    search.driverOnly = true;
    EXPECT_THAT(findings(), ElementsAre("cable: not-permitted", "gone: no-answer"));
}

// The bus's list cannot name a device that does not answer; the system's records may.
TEST_F(TargetPrinterList, HasForbiddenDevicesThatTheBusListCannotNameOnce)
{
    auto& forbidden = host.printer();
    forbidden.forbidden = true;
    forbidden.opens = false;
    forbidden.productName.reset();
    EXPECT_THAT(findings(), ElementsAre("A USB printer: not-permitted"));
    host.printers().push_back(forbidden); // its second interface
    EXPECT_THAT(findings(), ElementsAre("A USB printer: not-permitted"));
    host.printers()[0].serial.reset();
    host.printers().pop_back();
    EXPECT_THAT(findings(), ElementsAre("A USB printer: not-permitted"));
}

TEST_F(TargetPrinterList, KeepsNamelessDevicesThatMayBeOpened)
{
    host.printer().serial.reset();
    auto& forbidden = host.printer();
    forbidden.forbidden = true;
    forbidden.opens = false;
    forbidden.productName.reset();
    server.queue("nameless too", "usb://Acme/P1");
    EXPECT_THAT(findings(),
                ElementsAre("nameless too: no-serial", "A USB printer: no-serial",
                            "A USB printer: not-permitted"));
}

TEST_F(TargetPrinterList, TakesExactNamesBeforeThePrefix)
{
    ScriptedModels usb;
    usb.models = {{port("1"), "P1"}, {port("2"), "P12"}, {port("3"), "P2"}};
    for (const char* serial : {"1", "2", "3"})
        server.queue(serial, port(serial));
    search.driverOnly = true;
    EXPECT_THAT(names(), ElementsAre("1", "2"));
    search.rule.exactModels = {"P2", "P12"};
    EXPECT_THAT(names(), ElementsAre("2", "3"));
    EXPECT_EQ(made.findings[0].reason, PrinterReason::otherModel);
    EXPECT_EQ(made.findings[0].answeredModel, "P1");
    EXPECT_EQ(usb.open, 0);
    EXPECT_EQ(usb.kept, 0);
}

TEST_F(TargetPrinterList, SaysWhyThereAreNoQueuesAndStillListsUsb)
{
    server.queue("a", "lpd://10.0.0.5/");
    server.refuse("it is not running");
    host.printer();
    EXPECT_THAT(names(), ElementsAre("A USB printer"));
    EXPECT_EQ(made.serverProblem, "it is not running");
}

TEST_F(TargetPrinterList, StopsBetweenTwoDevicesWhenItIsCancelled)
{
    ScriptedModels usb;
    for (const char* serial : {"1", "2", "3"}) {
        usb.models[port(serial)] = "P1";
        server.queue(serial, port(serial));
        host.printer().serial = serial;
    }
    usb.whileAsked = [&] { cancel = usb.ports.size() == 2; };
    EXPECT_THAT(findings(), ElementsAre("1: candidate", "2: candidate"));
    EXPECT_TRUE(made.isCancelled);
    EXPECT_THAT(usb.ports, ElementsAre(port("1"), port("2")));
    EXPECT_EQ(usb.open, 0);
    EXPECT_EQ(usb.kept, 0);
}

TEST_F(TargetPrinterList, QueriesNoPrinterOnceItIsCancelled)
{
    cancel = true;
    host.printer();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_TRUE(made.isCancelled);
    EXPECT_EQ(server.asked, 0);
    EXPECT_THAT(listener.waits, IsEmpty());
    cancel = false;
    server.whileAsked = [this] { cancel = true; };
    server.queue("a", "lpd://10.0.0.5/");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(listener.waits, ElementsAre("print server"));
}

TEST_F(TargetPrinterList, StopsAmongThePrintersOnTheBusToo)
{
    ScriptedModels usb;
    for (const char* serial : {"1", "2"}) {
        usb.models[port(serial)] = "P1";
        host.printer().serial = serial;
    }
    usb.whileAsked = [this] { cancel = true; };
    EXPECT_THAT(candidates(), ElementsAre("A USB printer " + port("1")));
    EXPECT_TRUE(made.isCancelled);
}

TEST(RememberedRow, FollowsItsPortStringToItsNewPlace)
{
    const auto records = [](const Texts& uris) {
        PrinterList::Records list;
        for (const auto& uri : uris)
            list.push_back(PrinterInfo::initWithPrinterName("any", "any", uri));
        return list;
    };
    const auto before = records({"a", "b", "c"});
    const struct {
        const char* why;
        int selected;
        Texts after;
        int row;
    } rows[] = {
        {"it moved", 2, {"c", "a", "b"}, 0},
        {"it stayed", 1, {"a", "b", "c"}, 1},
        {"the first of two", 1, {"a", "x", "b", "b"}, 2},
        {"it is gone", 1, {"a", "c"}, 0},
        {"an address that only contains it", 1, {"a", "bb"}, 0},
        {"row 0 is the default anyway", 0, {"b", "a"}, 0},
        {"no row", -1, {"b", "a"}, -1},
        {"a row that never was", 3, {"b", "a"}, 3},
        {"nothing left", 2, {}, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rememberedRow(row.selected, before, records(row.after)), row.row) << row.why;
    EXPECT_EQ(rememberedRow(1, {}, before), 1);
}

TEST(PrinterReasonName, NeverChanges)
{
    Texts names;
    for (int i = 0; i <= static_cast<int>(PrinterReason::otherModel); ++i)
        names.emplace_back(printerReasonName(static_cast<PrinterReason>(i)));
    EXPECT_THAT(names,
                ElementsAre("candidate", "no-model", "other-driver", "no-device-uri",
                            "other-connection", "no-serial", "duplicate", "not-permitted",
                            "no-answer", "other-model"));
}
