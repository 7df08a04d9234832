// SPDX-License-Identifier: MIT
// Shows a fleet's run while it goes on: on a terminal one line for each running printer and a count
// below, elsewhere a line for each printer that has ended; as JSON every line of every printer,
// with the name that it was asked for.
//
// Owns:    what is shown of each printer; the caller owns names and display.
// Threads: the run's.
#pragma once
#include "CLI/Commands.h"
#include "CLI/Fleet/FleetRun.h"

#include <memory>

// names: of the printers, in the order of the run; they stay until the view is destroyed.
std::unique_ptr<FleetObserver> makeFleetView(const std::vector<std::string>& names,
                                             Workplace& place);
