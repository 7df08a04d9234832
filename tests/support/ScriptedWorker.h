// The flat functions in front of the update worker, played by a script: a test program that names
// ScriptedWorker.cpp among its sources links them in place of the real ones. The record that the
// next look finds is the test's; what the worker was told is kept.
//
// Threads: as the real ones; StopThread may come from another thread.
#pragma once
#include "VYM/vymDevInfo.h"

#include <atomic>
#include <chrono>
#include <mutex>
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
    std::chrono::milliseconds stopTakes{0};
    tag_devinfo record{}; // with result 1

    void note(const std::string& call);
    [[nodiscard]] std::vector<std::string> calls() const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_calls;
};
