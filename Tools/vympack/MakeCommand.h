// Makes a package out of files that pass all checks, and says what it wrote.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Commands.h"

namespace vympack {

inline constexpr const char* kStandardOutput = "-"; // as the name of an output

struct MakeOrder {
    std::string path; // of the package; kStandardOutput writes it there
    std::vector<std::string> inputs;
    bool force = false; // replace a file that exists
    bool crlf = false; // end the description's rows in CR LF, whatever they end in
    bool sort = false; // by name, so that the order of the inputs does not matter
    bool json = false;
};

int makePackage(const MakeOrder& order, Streams streams);

} // namespace vympack
