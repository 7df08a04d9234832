// One run of the whole command line in this process, with a fake package and a scripted worker
// behind it and its streams in memory; and the files that its output is held against.
#pragma once
#include "tests/CLI/FakePackage.h"
#include "tests/support/ScriptedPrintServer.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedWorker.h"
#include "tests/support/TempFolder.h"

#include <string>
#include <vector>

// The fixture: a package of two firmware in a folder of its own, a printer that never answers, a
// print server without queues, no USB.
class CommandRun {
public:
    CommandRun();

    // Runs "vymkit-cli" with these words; returns the exit code.
    int run(const std::vector<std::string>& words);
    // The same, with --package and this fixture's folder.
    int runOnPackage(std::vector<std::string> words);

    FakePackage& package;
    ScriptedWorker worker; // a second goes by with each look
    ScriptedPrintServer server; // without queues
    std::string out; // of the last run, its folder's name replaced by FOLDER
    std::string err;
    int standardInput = -1; // a descriptor to read answers from; none by default
    int standardOutput = -1; // a descriptor to write to instead of out
    TempFolder folder;

private:
    ScriptedTime m_time;
};

// A record in state, of the n-th firmware.
tag_devinfo status(update_state state, unsigned number = 0, const char* name = "",
                   std::uint32_t done = 0, std::uint32_t total = 0, unsigned updated = 0,
                   int result = 1);
// An outcome of a firmware that was sent and confirmed.
tag_entryoutcome confirmed(std::uint32_t number, std::uint32_t bytes);

// Whether output is what tests/CLI/golden/<name> holds, but for the time that a run took. With
// VYMKIT_WRITE_GOLDEN set, the file is written instead.
void expectGolden(const std::string& name, const std::string& output);
