// Makes text from outside (a printer, a package, a print queue) fit to be shown: what could move a
// terminal's cursor, end a line or turn the reading direction becomes a visible escape.
//
// Owns:      nothing.
// Threads:   any. Reads nothing but its argument, whatever the locale says.
// Invariant: the result is valid UTF-8 without control characters, never longer than the limit.
//            A backslash stays as it is: the result is for reading, not for turning back.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

// What one field of a display line may take, in bytes; longer texts end in "...".
constexpr std::size_t kDisplayLimit = 200;

// Control bytes and bytes that are no UTF-8 become \x1b; control, line-separating and
// direction-turning characters beyond ASCII become \u202e; other valid UTF-8 stays.
std::string plainText(std::string_view text, std::size_t limit = kDisplayLimit);
