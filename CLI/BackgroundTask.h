// Runs blocking work on another thread, so that the program can handle signals and show progress
// meanwhile.
//
// Owns:    its thread; the destructor joins it.
// Threads: one thread starts and queries it. If no thread can be created, start does the work.
#pragma once
#include "CLI/Session.h"

#include <atomic>
#include <functional>
#include <system_error>
#include <thread>

class BackgroundTask {
public:
    // Notifies the session when the work is done.
    void start(Session& session, std::function<void()> work)
    {
        const auto whole = [this, &session, job = std::move(work)] {
            job();
            m_done = true;
            session.notify();
        };
        m_started = true;
        try {
            m_thread = std::thread(whole);
        } catch (const std::system_error&) {
            whole();
        }
    }
    BackgroundTask() = default;
    ~BackgroundTask()
    {
        if (m_thread.joinable())
            m_thread.join();
    }
    BackgroundTask(const BackgroundTask&) = delete;
    BackgroundTask& operator=(const BackgroundTask&) = delete;

    [[nodiscard]] bool isStarted() const { return m_started; }
    [[nodiscard]] bool isDone() const { return m_done; }

private:
    bool m_started = false;
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};
