// The forms of a firmware version text that can be compared with a printer's. Which form a text
// has depends on where its first point stands:
//
//   none        four leading characters, then digits    AB010203
//   at 2        two digits, two digits                   01.10
//   at 6        four leading characters, then as at 2    AB0101.10
//   at 8        around the third point: as at 2          ABCDEFGH.01.02.03
//   at 12       four leading characters, eight digits    AB0120240131.
//
// Threads: any. Reads nothing but its argument.
#pragma once
#include <cstddef>
#include <optional>
#include <string_view>

namespace vympack {

struct VersionForm {
    bool pointed = false; // COMPATIBLE is compared in the form without a point only
    bool numbered = true; // there are digits to compare
    std::size_t compared = 0; // characters that a comparison looks at; what follows does not count
};

// None when a comparison would refuse the text.
std::optional<VersionForm> versionForm(std::string_view text);

} // namespace vympack
