// SPDX-License-Identifier: MIT
// Runs blocking work on another thread, so that the program can handle signals and show progress
// meanwhile.
//
// Owns:    its thread; the destructor joins it.
// Threads: one thread starts and queries it. If no thread can be created, start does the work.
#pragma once
#include "CLI/Session.h"

#include <atomic>
#include <cassert>
#include <exception>
#include <functional>
#include <thread>

class BackgroundTask {
public:
    // Call once. Notifies the session when the work is done.
    void start(Session& session, std::function<void()> work)
    {
        assert(!m_started);
        const auto whole = [this, &session, job = std::move(work)] {
            try {
                job();
            } catch (const std::exception&) {
                m_failed = true;
            }
            m_done = true;
            session.notify();
        };
        m_started = true;
        try {
            m_thread = std::thread(whole);
        } catch (const std::exception&) { // no thread, or no memory for one
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
    // Only of a task that is done: the work ended with an exception, for lack of memory.
    [[nodiscard]] bool hasFailed() const
    {
        assert(m_done);
        return m_failed;
    }

private:
    bool m_started = false;
    std::atomic<bool> m_failed{false};
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};
