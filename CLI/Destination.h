// From the words that name a printer to what the engine connects to.
//
// Threads: called on the command's.
#pragma once
#include "CLI/Commands.h"

// The destination, or how the command ended without one.
struct DestinationResult {
    std::optional<Destination> destination;
    Outcome outcome;
};

DestinationResult findDestination(Workplace& place);
