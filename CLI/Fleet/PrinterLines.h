// SPDX-License-Identifier: MIT
// Reads a list of printers: one on each line, as for the options --address and --uri, or with an
// option before it ("--printer office"). "#" starts a comment, at the start of a line or after a
// blank.
//
// Threads: any. Pure functions.
#pragma once
#include "CLI/Fleet/FleetOptions.h"

#include <string_view>

struct PrinterLines {
    std::vector<PrinterWord> printers;
    std::string problem; // with the number of the first bad line; empty if all are right
};

PrinterLines printerLines(std::string_view text);
