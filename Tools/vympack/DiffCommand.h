// SPDX-License-Identifier: MIT
// Shows the differences between two packages.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

struct DiffOrder {
    std::string before;
    std::string after;
    bool json = false;
};

// kExitDone without a difference, kExitDefects with one, kExitNoInput if one is not a package.
int diffFiles(const DiffOrder& order, Streams streams);

} // namespace vympack
