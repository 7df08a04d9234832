// Texts of unknown origin made fit for a terminal and for JSON: control characters, characters
// that turn or break lines of text, and bytes that are no UTF-8 become \xNN, byte by byte.
//
// Threads: any. Reads nothing but its argument.
#pragma once
#include <string>
#include <string_view>

namespace vympack {

// Always valid UTF-8; a text that is printable already comes back unchanged.
std::string printable(std::string_view text);

} // namespace vympack
