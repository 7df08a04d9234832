// One simulated run from its start to its last byte, and what is untrue about it.
//
// Threads: one; one run at a time.
#pragma once
#include "tests/sim/Scenario.h"

#include <cstdint>
#include <string>
#include <vector>

namespace sim {

struct RunReport {
    std::vector<std::string> untruths;
    std::string trace; // where one was wanted
    int result = 0; // as the status record says
    bool started = false;
    unsigned sent = 0; // entries of which bytes went out
    unsigned succeeded = 0; // of those
    unsigned refused = 0; // by the printer, with whatever code they ended
    bool sound = false;
    bool disturbed = false;
    bool memoryFailed = false;
    Micros took = 0;
};

RunReport runSeed(std::uint64_t seed, bool traced);

} // namespace sim
