// SPDX-License-Identifier: MIT
// Finishes a run however the window ends, so that no firmware is cut: by exit from within the
// toolkit (the display has gone), by an uncaught exception, or by a crash of the thread that shows
// the run, for example where memory runs out. After that the process ends as it would have ended
// without this.
//
// Owns:      while it lives, the process's handlers of SIGABRT, SIGBUS, SIGFPE, SIGILL and SIGSEGV.
// Threads:   its maker's. At most one lives in a process. A crash of another thread, the worker's
//            for example, ends the process at once.
// Invariant: the function is called at most once, and not after the destructor.
#pragma once
#include <functional>

class RunRescue {
public:
    // Has to return when the printer is left. why: static, for the log. Memory may be short or
    // broken: a function that throws has done what it could.
    using Finish = std::function<void(const char* why)>;
    explicit RunRescue(Finish finish); // not empty
    ~RunRescue();
    RunRescue(const RunRescue&) = delete;
    RunRescue& operator=(const RunRescue&) = delete;

private:
    static void finishNow(const char* why);
    static void atExit();
    static void onCrash(int signal);

    Finish m_finish;
};
