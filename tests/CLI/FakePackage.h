// SPDX-License-Identifier: MIT
// A fake package below the flat functions for its description and files, which replace the real
// ones at link time.
//
// Owns:    its settings, until the next reset.
// Threads: the command's.
#pragma once
#include "UI/vymParseController.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

struct FakeFirmware {
    std::string name, version, file, nameInPrinter, compatible, displayName, displayVersion;
};

struct FakePackage {
    bool isContainer = true;
    int loadResult = 0;
    std::string model = "Model 100";
    int portNumber = 48350;
    yesno_type needsExitOperation = yesno_no;
    yesno_type versionRule = yesno_no;
    std::optional<std::pair<long, long>> systemBounds = {{0, -1}}; // lowest, highest
    std::vector<FakeFirmware> firmware;
    std::map<std::string, unsigned long> files;
};

// The only one of this process, reset.
FakePackage& resetFakePackage();
