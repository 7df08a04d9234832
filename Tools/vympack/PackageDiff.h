// SPDX-License-Identifier: MIT
// The differences between two packages: rows, firmware, images, and the effect of an update on
// printers that have the old one.
//
// Owns:    its texts, by value, unchanged; the code that prints them makes them printable.
// Threads: any.
#pragma once
#include "Tools/vympack/Container.h"

#include <string>
#include <vector>

namespace vympack {

// The compared parts of a package.
struct PackageContent {
    Table table;
    std::string description;
    std::vector<std::string> digests; // one for each entry of the table; empty if unreadable
};

enum class DiffKind { row, firmware, image, decision };

struct Difference {
    DiffKind kind;
    std::string what; // the key, the firmware's or the image's name
    std::string before; // empty if it is new
    std::string after; // empty if it was removed
};

// Row by row in the order of the old package, then new rows. Ignores comments.
std::vector<Difference> diffPackages(const PackageContent& before, const PackageContent& after);

} // namespace vympack
