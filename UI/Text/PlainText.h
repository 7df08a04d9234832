// SPDX-License-Identifier: MIT
// Makes text from outside (a printer, a package, a print queue) safe to show: characters that could
// move a terminal's cursor, end a line or change the reading direction become visible escapes.
//
// Owns:      nothing.
// Threads:   any. Reads only its argument; ignores the locale.
// Invariant: the result is valid UTF-8 without control characters, never longer than the limit.
//            Backslashes are not escaped: the result is for reading, not for decoding.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

// The room for one field of a display line, in bytes; longer texts end in "...".
constexpr std::size_t kDisplayLimit = 200;

// Control bytes and invalid UTF-8 become escapes such as \x1b; control, line-separating and
// direction-changing characters beyond ASCII become escapes such as \u202e; the rest stays.
std::string plainText(std::string_view text, std::size_t limit = kDisplayLimit);
