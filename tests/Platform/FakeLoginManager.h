// SPDX-License-Identifier: MIT
// A message bus for one test, with a scripted login manager on it.
//
// Owns:      the bus's process, the login manager's thread, the locks that it gave.
// Threads:   the test's; the manager answers on its own.
// Invariant: while it lives, DBUS_SYSTEM_BUS_ADDRESS is this bus.
#pragma once
#include "tests/support/Process.h"
#include "tests/support/TempFolder.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

struct sd_bus_message;

struct Inhibition {
    std::string what, who, why, mode;

    [[nodiscard]] bool isFull() const { return what.find("shutdown") != std::string::npos; }
};

class FakeLoginManager {
public:
    enum class Reply { grant, refuse, nothing };
    using Manners = std::function<Reply(const Inhibition&)>;

    explicit FakeLoginManager(Manners manners);
    ~FakeLoginManager();
    FakeLoginManager(const FakeLoginManager&) = delete;
    FakeLoginManager& operator=(const FakeLoginManager&) = delete;

    [[nodiscard]] std::vector<Inhibition> asked();
    // The number of its locks that are still held.
    [[nodiscard]] std::size_t held();
    // Whether all are released; the bus may need a moment to close its copies.
    [[nodiscard]] bool hasAllBack();

    int answer(sd_bus_message* message); // for the bus

private:
    void serve();

    TempFolder m_folder;
    std::string m_address;
    Manners m_manners;
    Process m_daemon;
    std::mutex m_mutex;
    std::vector<Inhibition> m_asked;
    std::vector<int> m_readEnds;
    std::atomic<bool> m_isReady{false};
    std::atomic<bool> m_stop{false};
    std::thread m_thread;
};
