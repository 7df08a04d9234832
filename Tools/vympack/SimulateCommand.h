// What an update would do with a printer, firmware by firmware, without a printer. The rooms that
// decide and conclude are those of a check and of an update.
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
    bool table = false; // also installed against decision for every row of the package
    bool json = false;
};

// Ends as a check of such a printer would.
int simulate(const SimulateOrder& order, Streams streams);

} // namespace vympack
