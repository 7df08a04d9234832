// SPDX-License-Identifier: MIT
// The printers that were found, as values: the texts about each, and why it can be updated or not.
// All texts are safe to show.
//
// Owns:    its texts, by value.
// Threads: any. Pure functions, but for warnOfHolders, which reads the kernel's files.
#pragma once
#include "UI/Printers/PrinterHelp.h"

#include <string>
#include <vector>

struct ListedPrinter {
    std::string name;
    std::string identifier; // of its queue; empty without one
    std::string address; // the port string, usable with --uri; may be empty
    std::string connection; // a stable name
    std::string model;
    FoundAs foundAs = FoundAs::queue;
    PrinterReason reason = PrinterReason::candidate;
    PrinterHelpKind help = PrinterHelpKind::none;
    std::string sameAs;
    std::string answeredModel;
    // A foreseeable problem of a candidate, or who keeps it from answering; may be empty.
    std::string warning;
};

struct PrinterFacts {
    bool all = false; // the list has every printer, not only those that can be updated
    std::vector<ListedPrinter> list;
    std::size_t found = 0; // the number of printers that were checked
    std::size_t candidates = 0;
    std::size_t notPermitted = 0;
    std::string serverProblem; // empty if the print server answered
};

PrinterFacts printerFacts(const TargetPrinters& made, bool all);
// Warns of the programs that have a USB printer open: it does not answer because of them, or an
// update could not open it. vendor and root as for holdersOfPort.
void warnOfHolders(PrinterFacts& facts, const std::string& vendor, const std::string& root);
ListedPrinter listedPrinter(const PrinterFinding& finding);

const char* foundAsName(FoundAs foundAs); // stable
std::string foundAsText(FoundAs foundAs);
std::string connectionText(const ListedPrinter& printer);
// The rest of a sentence that begins with the printer: "does not answer".
std::string reasonText(const ListedPrinter& printer);
