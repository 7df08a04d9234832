// SPDX-License-Identifier: MIT
// Names every defect of a package, a description or a folder.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

struct CheckOrder {
    std::string path;
    bool json = false;
    bool strict = false; // warnings count as errors
};

int checkPackage(const CheckOrder& order, Streams streams);

} // namespace vympack
