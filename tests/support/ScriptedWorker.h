// SPDX-License-Identifier: MIT
// Scripted flat functions for the update worker and the check: a test program that lists
// ScriptedWorker.cpp among its sources links them instead of the real ones. The test sets the
// results of looks and checks; the worker's arguments are kept.
//
// Threads: as the real ones; StopThread and a check may come from another thread. A test may read
//          the arguments while none of these functions runs.
#pragma once
#include "UI/vym_etc.h"

#include <atomic>
#include <functional>
#include <limits>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

class ScriptedWorker {
public:
    ScriptedWorker(); // the flat functions use this one until it is destroyed
    ~ScriptedWorker();
    ScriptedWorker(const ScriptedWorker&) = delete;
    ScriptedWorker& operator=(const ScriptedWorker&) = delete;

    bool canBeCreated = true;
    bool canStart = true;

    // Each look returns the next of the records, then the last one again and again; without records
    // it returns record. After the stop it returns recordAfterStop, if that is set.
    tag_devinfo record{}; // with result 1
    std::vector<tag_devinfo> records;
    std::optional<tag_devinfo> recordAfterStop;
    std::atomic<std::size_t> looks{0};
    // Later looks wait for the stop.
    std::size_t stopFollowsLook = std::numeric_limits<std::size_t>::max();
    std::function<void(std::size_t look)> atLook; // a further action at that look, from 0
    unsigned long lookTakes = 0; // milliseconds, on the clock of vymMac

    std::function<void()> atStop; // during the wait for the stop
    std::vector<tag_entryoutcome> outcomes;
    std::string printerModel; // as the printer says during a run
    bool mayRefuseFirmware = false; // it has not begun with the first one

    CheckReport report{};
    std::function<void(const std::atomic<bool>& stop)> duringCheck;

    unsigned long systemVersion = 0x1200;

    // The arguments.
    std::string port;
    std::optional<std::string> queue;
    unsigned short portNumber = 0;
    EntryChoice choice; // of the last run or check
    unsigned long polling = 0;
    int workers = 0; // created and not yet deleted
    int stops = 0;
    [[nodiscard]] std::vector<std::string> calls() const; // without looks

    // For the flat functions.
    void note(const std::string& call);
    void takeDestination(const char* givenQueue, const char* givenPort, unsigned short portNo);
    tag_devinfo look();
    void stop();

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_calls;
    std::atomic<bool> m_isStopped{false};
};
