// What a VERSION row says, part by part, as the updater reads it.
//
// Owns:    nothing; every part is a view into the row.
// Threads: any. Reads nothing but its argument.
#pragma once
#include "VYM/DescriptionText.h"

#include <string_view>
#include <vector>

namespace vympack {

struct VersionRow {
    description::NamedToken first; // the first token
    std::string_view compatible;
    std::string_view image; // as written, perhaps with folders
    std::vector<std::string_view> subFiles; // the last one counts
    std::vector<std::string_view> others; // name=value tokens of no known name, but the first
};

// COMPATIBLE, HEADER, DISPVER or DISPFIRM.
bool isTokenName(std::string_view name);
// The one of these four that the name is only a slip or two away from; empty when there is none.
std::string_view nearestTokenName(std::string_view name);
VersionRow parseVersionRow(std::string_view row);
// True when the first token is the firmware's name and version.
bool namesFirmware(const VersionRow& row);
// The image's name in the container: what follows the last path separator.
std::string_view imageName(const VersionRow& row);

} // namespace vympack
