// SPDX-License-Identifier: MIT
// Checks that the VERSION rows of a description agree with each other and with the files in the
// package: each row has a firmware, its version, its image and the printer's name for it.
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

// Reports unused images at their own places, other defects at their rows. Without files, does not
// look for images. The rule is the description's ALLOWVERSIONDOWN.
void checkVersionRows(std::span<const KeyedRow> rows, const std::vector<EmbeddedFile>* files,
                      yesno_type rule, const RowReport& report, Defects& defects);

} // namespace vympack
