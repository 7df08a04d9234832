// SPDX-License-Identifier: MIT
// Checks that the value of a row suits its key, reading it in the same way as the updater.
//
// Threads: any.
#pragma once
#include "Tools/vympack/DescriptionKeys.h"
#include "Tools/vympack/RowReport.h"

#include <span>

namespace vympack {

// Not for the rows of VERSION and PLATFORMVERSION, which repeat.
void checkValue(const KeyedRow& row, const RowReport& report);
// Checks all PLATFORMVERSION rows together: the first one for this platform counts.
void checkPlatformRows(std::span<const KeyedRow> rows, const RowReport& report);

} // namespace vympack
