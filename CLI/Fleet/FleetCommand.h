// SPDX-License-Identifier: MIT
// A call for many printers: reads which ones, leaves out those that an earlier call has dealt with,
// runs the others in processes of their own, and sums up.
//
// Threads: the caller's.
#pragma once
#include "CLI/Commands.h"
#include "CLI/Fleet/MemberOrder.h"

// The printers that the command line and its list name.
struct FleetWords {
    std::vector<PrinterWord> printers;
    std::string problem; // of the list or of the results' file; empty if both are right
    StopCause stop = StopCause::none; // while the list was read
};
FleetWords readFleetWords(Workplace& place);

Outcome runFleetCall(const PackageFacts& package, const FleetWords& words, Workplace& place);

// In the process of one printer: records its end as its call has ordered.
void recordEnd(const MemberOrder& order, Outcome& outcome);
