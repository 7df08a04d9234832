// SPDX-License-Identifier: MIT
// The user's options, read from the command line and checked as far as the words alone allow.
//
// Owns:    its texts, by value.
// Threads: any. Opens no package and queries no device.
#pragma once
#include "CLI/Command.h"
#include "CLI/Fleet/FleetOptions.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

struct Options {
    Command command = Command::none;
    // The printer of a command for one: at most one of these three.
    std::optional<std::string> address; // IPv4, or a host's name
    std::optional<std::string> printer; // a queue's identifier or name
    std::optional<std::string> uri; // a port string
    std::optional<std::string> package; // a folder, or the package's file
    std::optional<int> port; // in place of the package's
    std::optional<std::string> traceFile;
    std::optional<std::string> output; // the file of the report; empty: the standard output
    std::optional<std::size_t> run; // of the history, counted from 1, the newest
    std::optional<std::string> sha256; // that the package must have
    std::optional<std::string> key; // that the package must be signed with: a file or Base64
    std::optional<double> deadline; // seconds
    std::optional<double> verify; // seconds in which the printer has to come back
    std::optional<double> stallLimit; // seconds without any progress
    std::optional<double> lockTimeout; // seconds to wait for another update of the printer; 0: none
    std::vector<std::string> only; // the names of the firmware to update; empty: all
    bool skipSame = false; // leaves out what is installed in the package's version
    bool yes = false;
    bool all = false; // every printer: to list, or to check or update
    FleetOptions fleet; // of a check or update, also of one printer
    bool json = false; // set even if the rest of the line is wrong
    bool quiet = false;
    bool verbose = false;
    bool noColour = false;
    std::string usageError; // empty if the line is right
};

Options parseOptions(int argc, const char* const* argv);
// A check or update of several printers, or of one from a list or with a file of results.
bool isFleetCall(const Options& options);
