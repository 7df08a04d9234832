// SPDX-License-Identifier: MIT
#include "UI/Run/RunRescue.h"

#include <array>
#include <cassert>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <utility>

namespace {

constexpr std::array kCrashes = {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV};

std::array<struct sigaction, kCrashes.size()> g_former{};

// Null on every thread but the maker's, so that no other thread needs to be asked.
thread_local RunRescue* t_rescue = nullptr;

void restoreHandlers()
{
    for (std::size_t i = 0; i < kCrashes.size(); ++i)
        sigaction(kCrashes.at(i), &g_former.at(i), nullptr);
}

} // namespace

RunRescue::RunRescue(Finish finish) : m_finish(std::move(finish))
{
    assert(m_finish && t_rescue == nullptr);
    [[maybe_unused]] static const int isRegistered = std::atexit(&RunRescue::atExit);
    t_rescue = this;
    struct sigaction action { };
    action.sa_handler = &RunRescue::onCrash;
    for (std::size_t i = 0; i < kCrashes.size(); ++i)
        sigaction(kCrashes.at(i), &action, &g_former.at(i));
}

RunRescue::~RunRescue()
{
    if (t_rescue != this)
        return;
    t_rescue = nullptr;
    restoreHandlers();
}

void RunRescue::finishNow(const char* why)
{
    auto* const rescue = std::exchange(t_rescue, nullptr);
    if (rescue == nullptr)
        return;
    try {
        rescue->m_finish(why);
    } catch (const std::exception&) { // the process ends anyway
    }
}

void RunRescue::atExit()
{
    finishNow("the display has gone");
}

// Not what a handler may do in general: the thread's own locks may be held. But a firmware that is
// cut is worse than a process that hangs, and the worker has none of them.
void RunRescue::onCrash(int signal)
{
    finishNow("the window has crashed");
    restoreHandlers();
    raise(signal); // takes effect when this has returned
}
