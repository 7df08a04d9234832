// SPDX-License-Identifier: MIT
// Shows what an update would do with each firmware of a printer, without a printer. Uses the rooms
// that decide and conclude in a real check and update.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

struct SimulateOrder {
    std::string path;
    std::vector<std::string> installed; // NAME=VERSION each
    std::string model; // empty: the package's own
    bool noStatusQuery = false;
    bool table = false; // also a table of installed versions and decisions for every row
    bool json = false;
};

// Returns the exit code of a check of such a printer.
int simulate(const SimulateOrder& order, Streams streams);

} // namespace vympack
