// What an update would do to one printer, without doing it: enters download mode, reads the
// printer's own target information as an update does, decides per firmware entry, leaves again.
// Writes no firmware.
//
// Threads: runs on the caller's thread; every wait in it is bounded. A stop asked for from another
//          thread is heard between two exchanges, and the printer still leaves download mode.
#pragma once
#include "VYM/ModelDependCheckVer.h"

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

struct CheckedEntry {
    std::uint32_t number; // from 1, the entry's place in the package description
    std::string firmName;
    std::string updateVersion;
    std::string installedVersion; // as the printer says; empty where it lists no such firmware
    VersionDecision decision; // code kFirmwareUnreadable where the package lacks the image's bytes
    bool reached; // false: an update would have stopped at an entry before this one
};

struct CheckReport {
    int result; // a protocol result code; entries are decided only with kSuccess
    std::string printerModel;
    std::vector<CheckedEntry> entries;
    // An update would query its status after each entry that no error kept back, sent or not.
    bool reportsWriting = false;
};

CheckReport checkPrinter(char* queue, char* port, unsigned short portNo,
                         const std::atomic<bool>& stop);

// The same decisions for a printer that would say that of itself, without a printer.
CheckReport checkTargetInfo(std::string_view targetInfo);
