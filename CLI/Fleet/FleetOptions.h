// SPDX-License-Identifier: MIT
// The part of a command line that is about several printers: which ones, how many at a time, and
// when to stop.
//
// Owns:    its texts, by value.
// Threads: any.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A printer as the options --address, --printer and --uri name one.
struct PrinterWord {
    enum class Kind : std::uint8_t { address, queue, uri };
    Kind kind = Kind::address;
    std::string text;

    bool operator==(const PrinterWord&) const = default;
};
const char* optionOf(PrinterWord::Kind kind); // "--address"
// Why no printer can be meant by it; empty if one can.
std::string errorOf(const PrinterWord& word);

struct FleetOptions {
    // Each is a process, a descriptor and a connection; more than this meets the usual limits of
    // a system, and of the network that all of them share.
    static constexpr int kMostJobs = 500;
    static constexpr int kMostPrinters = 1000000; // for limits that count printers

    std::vector<PrinterWord> printers; // in the order of the command line
    std::optional<std::string> from; // a file with a printer on each line; "-": the standard input
    std::optional<std::string> results; // the file that remembers how each printer ended
    int jobs = 8; // printers at a time: what one person can still look after
    std::optional<int> canary; // that many first, alone
    std::optional<int> maxFailures; // after so many nothing new starts
    std::optional<double> deadlineEach; // seconds
    std::vector<std::string> passedOn; // the other options, which hold for each printer's process
};
