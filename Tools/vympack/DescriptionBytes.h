// SPDX-License-Identifier: MIT
// Checks the bytes of a description before its rows: marks and bytes that its readers cannot
// handle, and row ends other than CR LF.
//
// Threads: any.
#pragma once
#include "Tools/vympack/Defect.h"

#include <optional>
#include <string>
#include <string_view>

namespace vympack {

// Names the defects and returns the intended text, without a mark and with CR LF after every row,
// so that the rows can be checked at once and row numbers are those of an editor. Empty if the text
// is in 16-bit characters and has no rows to check.
std::optional<std::string> checkBytes(std::string_view text, const Place& place, Defects& defects);

} // namespace vympack
