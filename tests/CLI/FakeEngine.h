// The engine behind the flat functions, written down: a package, the records that a run shows one
// after another, what becomes of each firmware. Linked in place of the real functions.
//
// Owns:    everything that it was given, until the next reset.
// Threads: the command's; StopThread and the check may come from another one.
#pragma once
#include "UI/vymParseController.h"
#include "UI/vym_etc.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

struct FakeFirmware {
    std::string name, version, file, nameInPrinter, compatible, displayName, displayVersion;
};

struct FakeEngine {
    // The package.
    bool isContainer = true;
    int loadResult = 0;
    std::string model = "Model 100";
    int portNumber = 48350;
    yesno_type needsExitOperation = yesno_no;
    yesno_type versionRule = yesno_no;
    std::optional<std::pair<long, long>> systemBounds; // lowest, highest
    std::vector<FakeFirmware> firmware;
    std::map<std::string, unsigned long> files;

    // A run: each look takes the next record; the last one stays. Behind a stop, the last record
    // is replaced by recordAfterStop where there is one.
    bool canCreate = true;
    bool canStart = true;
    std::vector<tag_devinfo> records;
    std::optional<tag_devinfo> recordAfterStop;
    std::vector<tag_entryoutcome> outcomes;
    std::size_t stopFollowsLook = static_cast<std::size_t>(-1); // later looks wait for the stop
    std::function<void(std::size_t look)> atLook; // what else happens at that look, from 0
    std::function<void()> atStop; // while the stop is waited for

    // A check.
    CheckReport report{};
    std::function<void(const std::atomic<bool>& stop)> duringCheck;

    // What was asked of it.
    std::string address;
    std::optional<std::string> identifier;
    unsigned short port = 0;
    unsigned long polling = 0;
    int workers = 0; // created and not yet deleted
    int stops = 0;
    std::size_t looks = 0;
};

// The one of this process, as new.
FakeEngine& resetFakeEngine();
