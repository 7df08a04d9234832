// Something that waits on another thread, so that the program can go on noticing signals and
// showing progress meanwhile.
//
// Owns:    its thread; the destructor joins it.
// Threads: started and asked by one thread. Where no thread can be had, the work is done at once.
#pragma once
#include "CLI/Session.h"

#include <atomic>
#include <functional>
#include <system_error>
#include <thread>

class BackgroundTask {
public:
    // The session is notified when the work is done.
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
