// SPDX-License-Identifier: MIT
// One simulated run from its start to its last byte, and the untrue claims about it.
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
    std::string trace; // if one was requested
    int result = 0; // from the status record
    bool started = false;
    unsigned sent = 0; // entries with bytes sent
    unsigned succeeded = 0; // of those
    unsigned refused = 0; // by the printer, whatever their code
    bool sound = false;
    bool allTaken = false; // no entry's outcome is a failure
    bool disturbed = false;
    bool memoryFailed = false;
    Micros took = 0;
};

RunReport runSeed(std::uint64_t seed, bool traced);
RunReport run(const Scenario& scenario, bool traced);

} // namespace sim
