// Checks the value of one row against what its key asks for, read as the updater reads it.
//
// Threads: any.
#pragma once
#include "Tools/vympack/DescriptionKeys.h"
#include "Tools/vympack/RowReport.h"

#include <span>

namespace vympack {

// For every key but VERSION and PLATFORMVERSION.
void checkValue(const KeyedRow& row, const RowReport& report);
// All PLATFORMVERSION rows together: the first one for this platform counts.
void checkPlatformRows(std::span<const KeyedRow> rows, const RowReport& report);

} // namespace vympack
