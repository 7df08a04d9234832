// The flat functions in front of the update worker and of a check, played by a script: a test
// program that names ScriptedWorker.cpp among its sources links them in place of the real ones.
// What a look or a check finds is the test's; what the worker was given is kept.
//
// Threads: as the real ones; StopThread and a check may come from another thread. What a function
//          here is given is the test's to read while none of them runs.
#pragma once
#include "UI/vym_etc.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <limits>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

class ScriptedWorker {
public:
    ScriptedWorker(); // the one that the flat functions speak to, until it goes
    ~ScriptedWorker();
    ScriptedWorker(const ScriptedWorker&) = delete;
    ScriptedWorker& operator=(const ScriptedWorker&) = delete;

    bool canBeCreated = true;
    bool canStart = true;

    // Each look finds the next of the records, and then the last one again and again; without
    // records it finds record. After the stop it finds recordAfterStop, where there is one.
    tag_devinfo record{}; // with result 1
    std::vector<tag_devinfo> records;
    std::optional<tag_devinfo> recordAfterStop;
    std::atomic<std::size_t> looks{0};
    // Later looks wait for the stop.
    std::size_t stopFollowsLook = std::numeric_limits<std::size_t>::max();
    std::function<void(std::size_t look)> atLook; // what else happens at that look, from 0
    unsigned long lookTakes = 0; // milliseconds, on the clock of vymMac

    std::chrono::milliseconds stopTakes{0};
    std::function<void()> atStop; // while the stop is waited for
    std::vector<tag_entryoutcome> outcomes;

    CheckReport report{};
    std::function<void(const std::atomic<bool>& stop)> duringCheck;

    unsigned long systemVersion = 0x1200;

    // What it was given.
    std::string port;
    std::optional<std::string> queue;
    unsigned short portNumber = 0;
    unsigned long polling = 0;
    int workers = 0; // created and not yet deleted
    int stops = 0;
    [[nodiscard]] std::vector<std::string> calls() const; // but looks

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
