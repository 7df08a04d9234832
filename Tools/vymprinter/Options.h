// SPDX-License-Identifier: MIT
// The options of the command line.
//
// Threads:   any.
// Opens only the files of --target-info and --replay, which it reads; creates no files.
#pragma once
#include "Tools/vymprinter/Faults.h"
#include "Tools/vymprinter/PrinterModel.h"
#include "Tools/vymprinter/SessionText.h"
#include "Tools/vymprinter/TcpListen.h"
#include "Tools/vymprinter/UsbOptions.h"

#include <filesystem>

namespace vymprinter {

constexpr int kExitUsage = 64; // the command line is wrong

struct Options {
    std::vector<Endpoint> endpoints; // one printer each; none with USB
    UsbOptions usb;
    PrinterModel model;
    std::vector<Fault> faults;
    std::optional<std::filesystem::path> store;
    std::optional<std::string> recording; // the file of --record
    std::vector<SessionLine> replay; // empty: the printer is a model
    std::optional<Endpoint> relay; // the destination of connections, instead of a model
    std::uint64_t faultyConnections = 0; // faults strike these first ones; 0: all
    int window = 0; // bytes of receive buffer over TCP; 0: the system's choice
    std::uint64_t sessions = 0; // end after that many; 0: never
    bool quiet = false;
};

struct ParsedOptions {
    std::optional<Options> options;
    int exitCode = 0; // without options: help was shown, or the command line is wrong
};

[[nodiscard]] ParsedOptions parseOptions(int argc, const char* const* argv);

} // namespace vymprinter
