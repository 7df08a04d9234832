// SPDX-License-Identifier: MIT
// Finds the printer that a name on the command line means.
//
// Threads: any. Pure functions.
#pragma once
#include "UI/Printers/TargetPrinters.h"

#include <memory>
#include <string>

struct PrinterChoice {
    enum class Problem : std::uint8_t { none, unknown, several, unsuitable };
    std::shared_ptr<PrinterInfo> printer; // null if there is a problem
    Problem problem = Problem::none;
    std::string message; // the problem and the next step, safe to show
};

// Compares queues' identifiers first; only if none is equal, their names for people.
PrinterChoice choosePrinter(const TargetPrinters& made, const std::string& name);
