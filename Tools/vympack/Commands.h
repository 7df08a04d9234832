// SPDX-License-Identifier: MIT
// Shared by the commands: their output streams, opening files, and the reading commands that need
// no room of their own.
//
// Threads: one.
#pragma once
#include "Tools/vympack/ContainerWriter.h"
#include "Tools/vympack/ExitCodes.h"
#include "Tools/vympack/Extraction.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace vympack {

// Results go to one stream, reasons of failures to the other.
struct Streams {
    std::ostream& results;
    std::ostream& errors;
};

void complain(Streams streams, const std::string& what, const std::string& reason);
// False with a complaint if the file cannot be read.
bool openInput(const std::string& path, InputFile& file, Streams streams);
// Opens a package and reads its table; returns an exit code if that fails.
std::optional<int> openTable(const std::string& path, InputFile& file, Table& table,
                             Streams streams);

// Each command returns the program's exit code.
int listPackage(const std::string& path, bool json, Streams streams);
int extractPackage(const std::string& path, const ExtractionOrder& order, Streams streams);

} // namespace vympack
