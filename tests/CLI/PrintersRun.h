// SPDX-License-Identifier: MIT
// Whole command lines with two print queues and printers on USB, for the tests of the list, of the
// look-up and of the choice.
#pragma once
#include "VYM/vymParse.h"
#include "tests/CLI/CommandRun.h"
#include "tests/support/ScriptedUsbHost.h"

inline std::string usbPort(const std::string& serial)
{
    return "usb://Acme/Model%20100?serial=" + serial;
}

// Two queues for two printers, and on the bus a printer of the package's model: the one that the
// test names first has no queue.
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
        server.queue("Off", usbPort("77"));
        usbPrinter("12");
        usbPrinter("13").deviceId = "MFG:Acme;CMD:X;MDL:Model 9;";
        auto& forbidden = usbPrinter("14");
        forbidden.forbidden = true;
        forbidden.opens = false;
    }
};
