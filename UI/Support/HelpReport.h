// SPDX-License-Identifier: MIT
// A text for those who help from afar: the doctor's findings, versions, the package's facts and the
// last log. Names, addresses and serial numbers are masked.
//
// Owns:    nothing.
// Threads: any, one call at a time in a process; waits as the doctor does.
#pragma once
#include "UI/Support/Doctor.h"
#include "UI/Support/Personal.h"

#include <string>
#include <vector>

namespace helpreport {

struct Facts {
    std::string program; // with its version
    std::optional<std::string> packagePath; // as the user named it
    doctor::Request doctor;
    Personal personal = personalOfSystem();
};

std::string compose(const OpenedPackage& opened, const Facts& facts);

// The file names of the shared libraries that this process has loaded; they tell their versions.
std::vector<std::string> loadedLibraries(const std::string& mapsFile = "/proc/self/maps");

} // namespace helpreport
