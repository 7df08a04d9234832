// The rules for the names of embedded files and for the list of files that makes a package.
// Names come from whoever made the package: none may lead out of the folder it is unpacked into.
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

// Why a name must not become a file's name, or empty when it may.
std::string_view whyUnsafe(std::string_view name);
// The list as a whole, then each name in it; whole is the place of what belongs to no single file.
void checkFiles(const std::vector<EmbeddedFile>& files, const Place& whole, Defects& defects);

} // namespace vympack
