// Checks the VERSION rows of a description against each other and against the files in the
// package: each row names a firmware, its version, its image and what the printer calls it.
//
// Threads: any.
#pragma once
#include "Tools/vympack/DescriptionKeys.h"
#include "Tools/vympack/FileNames.h"
#include "Tools/vympack/RowReport.h"

#include <span>
#include <vector>

namespace vympack {

// Unused images are reported at their own place, the rest in the rows.
void checkVersionRows(std::span<const KeyedRow> rows, const std::vector<EmbeddedFile>& files,
                      const RowReport& report, Defects& defects);

} // namespace vympack
