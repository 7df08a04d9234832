// Which of the printers that were found a name on the command line means.
//
// Threads: any. Pure functions.
#pragma once
#include "UI/Printers/TargetPrinters.h"

#include <memory>
#include <string>

struct PrinterChoice {
    enum class Problem : std::uint8_t { none, unknown, several, unsuitable };
    std::shared_ptr<PrinterInfo> printer; // null where there is a problem
    Problem problem = Problem::none;
    std::string message; // what the problem is and how to go on, fit to be shown
};

// A queue's identifier comes first; names that people read are looked at where none is the same.
PrinterChoice choosePrinter(const TargetPrinters& made, const std::string& name);
