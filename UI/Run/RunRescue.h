// SPDX-License-Identifier: MIT
// Finishes a run however the window ends, so that no firmware is cut and no printer is left in
// download mode: by exit from within the toolkit (the display has gone), by an uncaught exception,
// by a crash of the thread that shows the run, for example where memory runs out, or by that
// thread's standstill: the toolkit may wait for ever for a thread that could not be created. After
// that the process ends as it would have ended without this; after a standstill as by a crash.
//
// Owns:      while it lives, the process's handlers of SIGABRT, SIGBUS, SIGFPE, SIGILL and SIGSEGV,
//            and a thread that waits for a standstill, if one can be created.
// Threads:   its maker's. At most one lives in a process. A crash of another thread, the worker's
//            for example, ends the process at once.
// Invariant: the function is called at most once, on the maker's thread, and not after the
//            destructor.
#pragma once
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <pthread.h>
#include <thread>

class RunRescue {
public:
    // Has to return when the printer is left. why: static, for the log. Memory may be short or
    // broken: a function that throws has done what it could.
    using Finish = std::function<void(const char* why)>;
    static constexpr unsigned kStandstill = 120; // seconds; a remote display may be slow
    explicit RunRescue(Finish finish, unsigned standstill = kStandstill); // finish: not empty
    ~RunRescue();
    RunRescue(const RunRescue&) = delete;
    RunRescue& operator=(const RunRescue&) = delete;

    // The maker's thread is at work. To be called about once a second, whatever it waits for.
    void beat() { ++m_beats; }

private:
    static void finishNow(const char* why);
    static void atExit();
    static void onCrash(int signal);
    void watch();

    Finish m_finish;
    unsigned m_standstill;
    pthread_t m_maker = pthread_self();
    std::atomic<unsigned> m_beats{0};
    std::atomic<bool> m_standsStill{false};
    std::mutex m_mutex; // of m_isOver
    std::condition_variable m_wake;
    bool m_isOver = false;
    std::thread m_watch;
};
