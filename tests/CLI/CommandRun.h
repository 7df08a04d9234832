// SPDX-License-Identifier: MIT
// One run of the whole command line in this process, with a fake package, a scripted worker and
// streams in memory; and the comparison of its output with golden files.
#pragma once
#include "tests/CLI/FakePackage.h"
#include "tests/support/ScriptedPrintServer.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedWorker.h"
#include "tests/support/TempFolder.h"

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

// The fixture: a package of two firmware in its own folder, a printer that never answers, a print
// server without queues, no USB.
class CommandRun {
public:
    CommandRun();

    // Runs "vymkit-cli" with these arguments; returns the exit code.
    int run(const std::vector<std::string>& words);
    // The same, with --package and this fixture's folder.
    int runOnPackage(std::vector<std::string> words);
    // Called on another thread during a run: waits until this is on its error stream.
    void awaitErrors(std::string_view text) const;

    FakePackage& package;
    ScriptedWorker worker; // each look takes a second
    ScriptedPrintServer server; // without queues
    std::string out; // of the last run, with FOLDER instead of its folder's name
    std::string err;
    int standardInput = -1; // a descriptor to read answers from; -1: no input
    int standardOutput = -1; // a descriptor to write to instead of out
    TempFolder folder;

private:
    ScriptedTime m_time;
    std::atomic<int> m_errors{-1}; // the error stream of the run
};

// A record of the n-th firmware in that state.
tag_devinfo status(update_state state, unsigned number = 0, const char* name = "",
                   std::uint32_t done = 0, std::uint32_t total = 0, unsigned updated = 0,
                   int result = 1);
// An outcome of a firmware that was sent and confirmed.
tag_entryoutcome confirmed(std::uint32_t number, std::uint32_t bytes);

// Whether output equals tests/CLI/golden/<name>, except for durations. With VYMKIT_WRITE_GOLDEN
// set, writes the file instead.
void expectGolden(const std::string& name, const std::string& output);
