// SPDX-License-Identifier: MIT
// Writes a complete description as the start of a package: every key with a value that check
// accepts, rows that end in CR LF, and comments that say what to replace.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

struct InitOrder {
    std::string path = "VYMINFO.txt"; // "-" writes it to the results
    std::string model = "Model 100";
    std::vector<std::string> firmware; // NAME=VERSION:FILE[:DISPLAY NAME] each
    bool force = false; // replace a file that exists
};

int writeDescription(const InitOrder& order, Streams streams);

} // namespace vympack
