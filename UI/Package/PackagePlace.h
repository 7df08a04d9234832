// SPDX-License-Identifier: MIT
// Finds the update package: the one that the user named, otherwise the first place that has one.
//
// Threads: any. Checks only names; opens no package.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

struct PackagePlace {
    std::string folder;
    std::string file; // with the folder; need not exist
    bool isOtherName = false; // than VYMBINDDATA
};

// The package's file name if only its folder is named.
constexpr const char* kPackageName = "VYMBINDDATA";

// given: a package's file, of any name, or the folder that holds VYMBINDDATA; a name that does not
// exist counts as a folder's. Without it: searches the program's folder, then the data folder of
// the program's installation, then /usr/share/vymkit; if none of them has one, the program's
// folder.
PackagePlace findPackage(const std::optional<std::string>& given);
// The same for a program in another folder; data: the folder of all users' packages.
PackagePlace findPackage(const std::optional<std::string>& given, const std::string& programFolder,
                         const std::string& data);
// The folders that are searched if none is named, in their order, each once and without detours;
// the program's is left out if it is unknown (empty).
std::vector<std::string> searchedFolders();
std::vector<std::string> searchedFolders(const std::string& programFolder, const std::string& data);
