// SPDX-License-Identifier: MIT
// Turns the words that name a printer into a destination for the engine.
//
// Threads: the command's.
#pragma once
#include "CLI/Commands.h"

// The destination, or the command's outcome without one.
struct DestinationResult {
    std::optional<Destination> destination;
    Outcome outcome;
};

// The options must name an address, a print queue or a port string, unless the queue was found
// already.
DestinationResult findDestination(Workplace& place);
