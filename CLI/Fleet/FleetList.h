// SPDX-License-Identifier: MIT
// The printers of a fleet's call, each device once: of several names with the same host or the same
// USB serial number, the first stays.
//
// Owns:    its texts, by value.
// Threads: any. Pure functions. Host names are compared as texts; none is looked up.
#pragma once
#include "CLI/Fleet/FleetOptions.h"
#include "UI/Printers/TargetPrinters.h"

struct FleetMember {
    PrinterWord word;
    std::optional<PrintQueue> queue; // if the word is a queue that was found
};

struct FleetList {
    std::vector<FleetMember> members;
    std::vector<std::string> sameDevice; // the names that were left out
};

// made: what a search for printers found; null if there was none.
FleetList fleetList(const std::vector<PrinterWord>& words, const TargetPrinters* made);
// Every printer that can be updated from the package, as a word.
std::vector<PrinterWord> everyCandidate(const TargetPrinters& made);
