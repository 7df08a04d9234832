// SPDX-License-Identifier: MIT
// Finds the programs that go into a bundle: the bare ones beside this program, or the Debian
// packages of a folder. Opens every file, so that what is missing is found before anything is
// written.
//
// Threads: one.
#pragma once
#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/Commands.h"

#include <string>
#include <vector>

namespace vympack {

// A file of the bundle, open for reading.
struct BundledFile {
    std::string name; // in the bundle
    AtomicFile::Kind kind = AtomicFile::Kind::data;
    InputFile file;
};

// Appends wizard, command line and the window's form; folder: where they are, or empty for this
// program's own. Each returns false with a complaint if something is missing.
bool findPrograms(const std::string& folder, std::vector<BundledFile>& files, Streams streams);
// Appends the wizard's and the command line's packages, which must be of the same version and
// architecture, and sets their names.
bool findDebs(const std::string& folder, std::vector<BundledFile>& files,
              std::vector<std::string>& names, Streams streams);

} // namespace vympack
