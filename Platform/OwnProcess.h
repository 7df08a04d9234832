// SPDX-License-Identifier: MIT
// A piece of work in a process of its own, so that a library that hangs, crashes or runs out of
// memory takes nothing along: the process is ended when its time is over.
//
// Owns:    the process and the pipe, until the function returns. The process ends with its caller's
//          thread, too.
// Threads: any. The new process has a copy of the calling thread alone: the work may use no lock
//          that another thread may hold, except the C library's own.
// Bounds:  end and most; in addition, the kernel's time to end a process.
#pragma once
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

enum class OwnProcessEnd : std::uint8_t {
    done, // the work has returned, and all that it wrote is there
    timeOver,
    tooMuch, // it wrote more than the limit
    failed, // it crashed or threw
    notStarted, // no process or no pipe could be made
};

// work: writes its result to the descriptor; it inherits no other but the standard streams. Its
// exit handlers do not run. result: what it wrote, also after another end than done, up to the
// limit. Throws only std::bad_alloc.
OwnProcessEnd inOwnProcess(const std::function<void(int out)>& work,
                           std::chrono::steady_clock::time_point end, std::size_t most,
                           std::string& result);
