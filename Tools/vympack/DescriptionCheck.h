// Checks a description text whole: its bytes, which rows belong to which key, and what they say.
//
// Threads: any. Keeps nothing but the defects.
#pragma once
#include "Tools/vympack/FileNames.h"

#include <string_view>
#include <vector>

namespace vympack {

// The place names the description; files are all that the package holds, or null where images are
// not to be looked for.
void checkDescription(std::string_view text, const Place& place,
                      const std::vector<EmbeddedFile>* files, Defects& defects);

} // namespace vympack
