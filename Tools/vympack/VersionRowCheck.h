// Checks the VERSION rows of a description against each other and against the files in the
// package: each row names a firmware, its version, its image and what the printer calls it.
//
// Threads: any.
#pragma once
#include "Tools/vympack/DescriptionKeys.h"
#include "Tools/vympack/FileNames.h"
#include "Tools/vympack/RowReport.h"
#include "VYM/vymParse.h"

#include <span>
#include <vector>

namespace vympack {

// The programs refuse a package with more firmware.
inline constexpr std::size_t kMostVersions = 1000;

// Unused images are reported at their own place, the rest in the rows. Without files images are not
// looked for. The rule is the description's ALLOWVERSIONDOWN.
void checkVersionRows(std::span<const KeyedRow> rows, const std::vector<EmbeddedFile>* files,
                      yesno_type rule, const RowReport& report, Defects& defects);

} // namespace vympack
