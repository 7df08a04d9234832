// SPDX-License-Identifier: MIT
// Checks a whole description text: its bytes, the keys of its rows, and their values.
//
// Threads: any. Keeps only the defects.
#pragma once
#include "Tools/vympack/FileNames.h"

#include <string_view>
#include <vector>

namespace vympack {

// The place names the description; files are all files of the package, or null if images are not to
// be looked for.
void checkDescription(std::string_view text, const Place& place,
                      const std::vector<EmbeddedFile>* files, Defects& defects);

} // namespace vympack
