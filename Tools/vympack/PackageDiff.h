// What differs between two packages: rows, firmware, images, and what an update then does with
// printers that have the old one.
//
// Owns:    its texts, by value, as the packages have them; whoever prints them makes them
// printable. Threads: any.
#pragma once
#include "Tools/vympack/Container.h"

#include <string>
#include <vector>

namespace vympack {

// A package as far as it is compared.
struct PackageContent {
    Table table;
    std::string description;
    std::vector<std::string> digests; // of each entry of the table; empty where it is unreadable
};

enum class DiffKind { row, firmware, image, decision };

struct Difference {
    DiffKind kind;
    std::string what; // the key, the firmware's or the image's name
    std::string before; // empty where it is new
    std::string after; // empty where it is gone
};

// Row by row in the order of the old package, then what is new. Comments do not count.
std::vector<Difference> diffPackages(const PackageContent& before, const PackageContent& after);

} // namespace vympack
