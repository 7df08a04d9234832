// SPDX-License-Identifier: MIT
// Finds out what an update would do to one printer: enters download mode, reads the printer's
// TargetInfo.txt like an update, decides each firmware entry, leaves again. Writes no firmware.
//
// Threads: runs on the caller's thread; every wait in it is bounded. A stop requested from another
//          thread takes effect between two exchanges, and the printer still leaves download mode.
#pragma once
#include "VYM/EntryChoice.h"

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

struct CheckedEntry {
    std::uint32_t number; // from 1, the entry's place in the package description
    std::string firmName;
    std::string updateVersion;
    std::string installedVersion; // from the printer's list; empty if it lists no such firmware
    VersionDecision decision; // code kFirmwareUnreadable if bytes of the image are missing
    bool reached; // false: an update would have stopped at an entry before this one
};

struct CheckReport {
    int result; // a protocol result code; entries are valid only with kSuccess
    std::string printerModel;
    std::vector<CheckedEntry> entries;
    // An update would query its status after each entry that no error kept back, sent or not.
    bool reportsWriting = false;
};

CheckReport checkPrinter(char* queue, char* port, unsigned short portNo,
                         const std::atomic<bool>& stop, const EntryChoice& choice = {});

// The same decisions without a printer, for one that would send this TargetInfo.txt.
CheckReport checkTargetInfo(std::string_view targetInfo);
