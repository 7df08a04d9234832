// SPDX-License-Identifier: MIT
// Finds the firmware of the package that the options --only and --skip-same leave in a run.
//
// Threads: any. Pure functions.
#pragma once
#include "CLI/Options.h"
#include "UI/Package/PackageFacts.h"
#include "VYM/EntryChoice.h"

struct FirmwareChoice {
    EntryChoice entries;
    std::string problem; // a name that the package lacks, safe to show; empty if it has them all
};

// A name is a firmware's own or its name for people, in upper or lower case. Of several firmware
// with one name, all are meant.
FirmwareChoice chooseFirmware(const PackageFacts& package, const Options& options);
