// SPDX-License-Identifier: MIT
// Whether a printer has the firmware that was sent to it, by its own list of versions.
//
// Owns:    nothing.
// Threads: any. Pure functions of their arguments.
// Does not query the printer, nor decide how often that is worth trying.
#pragma once
#include "VYM/CheckRun.h"

#include <string>
#include <vector>

struct SentEntry {
    std::uint32_t number; // from 1, its place in the package
    std::string version; // made plain
};

enum class InstalledState : std::uint8_t {
    unknown, // the printer was not reached, or lists nothing: it may be restarting
    different, // at least one entry has another version
    installed,
};
InstalledState installedState(const CheckReport& report, const std::vector<SentEntry>& sent);
