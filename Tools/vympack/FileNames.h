// SPDX-License-Identifier: MIT
// The rules for the names of embedded files and for the list of a package's files. Names come from
// the package's maker; none may lead out of the folder that it is unpacked to.
//
// Threads: any.
#pragma once
#include "Tools/vympack/Defect.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vympack {

struct EmbeddedFile {
    std::string name;
    std::uint64_t size = 0;
    Place place;
};

// Why a name must not become a file's name; empty if it may.
std::string_view whyUnsafe(std::string_view name);
// Checks the list as a whole, then each name; whole is the place of defects of no single file.
void checkFiles(const std::vector<EmbeddedFile>& files, const Place& whole, Defects& defects);

} // namespace vympack
