// What is wrong with a description before its rows are looked at: marks and bytes that its readers
// stumble over, and row ends other than CR LF.
//
// Threads: any.
#pragma once
#include "Tools/vympack/Defect.h"

#include <optional>
#include <string>
#include <string_view>

namespace vympack {

// Names the defects and gives the text as it was meant, without a mark and with CR LF at the end
// of every row, so that the rows can be checked in the same go and row numbers are those that an
// editor shows. None when the text is in 16-bit characters and has no rows to check.
std::optional<std::string> checkBytes(std::string_view text, const Place& place, Defects& defects);

} // namespace vympack
