// What the program does, apart from its command line. Results go to one stream, reasons of a
// failure to the other; each command gives the program's exit code.
//
// Threads: one.
#pragma once
#include "Tools/vympack/Extraction.h"

#include <ostream>
#include <string>
#include <vector>

namespace vympack {

inline constexpr int kExitDone = 0;
inline constexpr int kExitDefects = 1; // defects found, or something was refused
inline constexpr int kExitUsage = 64; // these four as sysexits.h numbers them
inline constexpr int kExitNoInput = 66;
inline constexpr int kExitNoOutput = 73;
inline constexpr int kExitBroken = 70;

struct Streams {
    std::ostream& results;
    std::ostream& errors;
};

int makePackage(const std::string& path, const std::vector<std::string>& inputs, Streams streams);
int listPackage(const std::string& path, bool json, Streams streams);
int extractPackage(const std::string& path, const ExtractionOrder& order, Streams streams);
int checkPackage(const std::string& path, bool json, Streams streams);

} // namespace vympack
