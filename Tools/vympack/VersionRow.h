// SPDX-License-Identifier: MIT
// The parts of a VERSION row in the updater's reading.
//
// Owns:    nothing; every part is a view into the row.
// Threads: any. Reads only its argument.
#pragma once
#include "VYM/DescriptionText.h"

#include <string_view>
#include <vector>

namespace vympack {

struct VersionRow {
    description::NamedToken first; // the first token
    std::string_view compatible;
    std::string_view image; // unchanged, perhaps with folders
    std::vector<std::string_view> subFiles; // the last one counts
    std::vector<std::string_view> others; // name=value tokens with unknown names, except the first
};

// COMPATIBLE, HEADER, DISPVER or DISPFIRM.
bool isTokenName(std::string_view name);
// The one of these four that differs from the name by only a slip or two; empty if there is none.
std::string_view nearestTokenName(std::string_view name);
VersionRow parseVersionRow(std::string_view row);
// Whether the first token is the firmware's name and version.
bool namesFirmware(const VersionRow& row);
// The image's name in the container: the part after the last path separator.
std::string_view imageName(const VersionRow& row);

} // namespace vympack
