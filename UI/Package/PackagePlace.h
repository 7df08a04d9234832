// Where the update package is: what the person named, or else the first place that has one.
//
// Threads: any. Looks at names only; opens no package.
#pragma once
#include <cstddef>
#include <optional>
#include <string>

struct PackagePlace {
    std::string folder;
    std::string file; // with the folder; there may be none of that name
    bool isOtherName = false; // than VYMBINDDATA
};

constexpr std::size_t kLongestFolder = 1024; // as long as the engine keeps a location
// The file that a package has where only its folder is named.
constexpr const char* kPackageName = "VYMBINDDATA";

// given: a package's file, of any name, or the folder that holds VYMBINDDATA; a name that leads
// nowhere is taken for a folder's. Without it: beside the program, then where the program's own
// installation keeps its data, then /usr/share/vymkit; where none of them has one, beside the
// program.
PackagePlace findPackage(const std::optional<std::string>& given);
// The same for a program in a folder of its own; data: the folder of all users' packages.
PackagePlace findPackage(const std::optional<std::string>& given, const std::string& programFolder,
                         const std::string& data);
