// SPDX-License-Identifier: MIT
// The forms of a firmware version that can be compared with a printer's. The position of the first
// point decides the form:
//
//   none        four leading characters, then digits    AB010203
//   at 2        two digits, two digits                   01.10
//   at 6        four leading characters, then as at 2    AB0101.10
//   at 8        around the third point: as at 2          ABCDEFGH.01.02.03
//   at 12       four leading characters, eight digits    AB0120240131.
//
// Threads: any. Reads only its argument.
#pragma once
#include <cstddef>
#include <optional>
#include <string_view>

namespace vympack {

struct VersionForm {
    bool pointed = false; // COMPATIBLE is compared only in the form without a point
    bool numbered = true; // there are digits to compare
    std::size_t compared = 0; // the number of characters that a comparison uses
};

// Empty if a comparison would refuse the text.
std::optional<VersionForm> versionForm(std::string_view text);

} // namespace vympack
