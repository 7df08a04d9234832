// Runs a whole update against a virtual printer on this computer and says what the printer saw.
//
// Threads: one; the printer and the update run on two more until the return.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

struct RehearseOrder {
    std::string path;
    std::vector<std::string> installed; // NAME=VERSION each; empty: what the package updates
    bool quick = false; // without the pauses that a real printer needs
};

// kExitDone only where the update ended well and every byte arrived as the package has it.
int rehearsePackage(const RehearseOrder& order, Streams streams);

} // namespace vympack
