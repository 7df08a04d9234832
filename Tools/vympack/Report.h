// SPDX-License-Identifier: MIT
// Writes defects and tables for people and for programs. Only this room makes texts from a package
// printable.
//
// Threads: none of its own; writes to the given stream.
#pragma once
#include "Tools/vympack/Container.h"
#include "Tools/vympack/ContainerWriter.h"
#include "Tools/vympack/Defect.h"

#include <ostream>
#include <string>

namespace vympack {

inline constexpr int kSchemaVersion = 1; // of every JSON result; see docs/makers.md
inline constexpr int kIndent = 2; // of JSON for people

// One line per defect, with the row to write instead and, for the first of its kind, why it
// matters; then one line with the counts.
void writeDefects(std::ostream& out, const std::string& path, const Defects& defects);
void writeDefectsJson(std::ostream& out, const std::string& path, const Defects& defects,
                      int exitCode);
// One line per file: name, offset, size.
void writeTable(std::ostream& out, const Table& table);
void writeTableJson(std::ostream& out, const std::string& path, const Table& table);
// The new package, then one line per file in it; whole has the package's path as its name.
void writeMade(std::ostream& out, const PackedFile& whole, const std::vector<PackedFile>& files);
void writeMadeJson(std::ostream& out, const PackedFile& whole,
                   const std::vector<PackedFile>& files);

} // namespace vympack
