// SPDX-License-Identifier: MIT
// Runs a whole update of a virtual printer on this computer, and reports what the printer saw.
//
// Threads: one; the printer and the update run on two more until the return.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

struct RehearseOrder {
    std::string path;
    std::vector<std::string> installed; // NAME=VERSION each; empty: ones to update
    bool quick = false; // without the pauses that a real printer needs
};

// kExitDone only if the update succeeded and every byte arrived unchanged.
int rehearsePackage(const RehearseOrder& order, Streams streams);

} // namespace vympack
