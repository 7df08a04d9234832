// SPDX-License-Identifier: MIT
// Makes a package from files that pass all checks, and reports what it wrote.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

inline constexpr const char* kStandardOutput = "-"; // this output name means the standard output

struct MakeOrder {
    std::string path; // of the package, or kStandardOutput
    std::vector<std::string> inputs;
    bool force = false; // replace a file that exists
    bool crlf = false; // end the description's rows with CR LF, whatever their own ends
    bool sort = false; // by name, so that the order of the inputs does not matter
    bool json = false;
};

int makePackage(const MakeOrder& order, Streams streams);

} // namespace vympack
