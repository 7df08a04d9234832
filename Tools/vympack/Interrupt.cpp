// SPDX-License-Identifier: MIT
#include "Tools/vympack/Interrupt.h"

#include <atomic>
#include <csignal>
#include <initializer_list>

namespace vympack {

namespace {

// Atomic, since the signal may arrive on another thread than the one that looks: a rehearsal's
// printer has a thread of its own.
std::atomic<bool> g_isInterrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free); // a handler may use no other

extern "C" void raiseFlag(int)
{
    g_isInterrupted = true;
}

} // namespace

void catchInterrupts()
{
    struct sigaction action { };
    action.sa_handler = raiseFlag;
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU}) {
        struct sigaction before { };
        // The program's starter, such as nohup, may have set a signal to be ignored.
        if (::sigaction(number, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            ::sigaction(number, &action, nullptr);
    }
    // A file size limit and a closed pipe are failures of a write; they do not end the program.
    action.sa_handler = SIG_IGN;
    for (const int number : {SIGXFSZ, SIGPIPE})
        ::sigaction(number, &action, nullptr);
}

bool interrupted()
{
    return g_isInterrupted;
}

} // namespace vympack
