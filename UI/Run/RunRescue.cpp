// SPDX-License-Identifier: MIT
#include "UI/Run/RunRescue.h"

#include <array>
#include <cassert>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <utility>

namespace {

constexpr std::array kCrashes = {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV};

std::array<struct sigaction, kCrashes.size()> g_former{};

// Null on every thread but the maker's, so that a handler knows on which thread it runs.
thread_local RunRescue* t_rescue = nullptr;

void restoreHandlers()
{
    for (std::size_t i = 0; i < kCrashes.size(); ++i)
        sigaction(kCrashes.at(i), &g_former.at(i), nullptr);
}

} // namespace

RunRescue::RunRescue(Finish finish, unsigned standstill)
    : m_finish(std::move(finish)), m_standstill(standstill)
{
    assert(m_finish && t_rescue == nullptr);
    [[maybe_unused]] static const int isRegistered = std::atexit(&RunRescue::atExit);
    t_rescue = this;
    struct sigaction action { };
    action.sa_handler = &RunRescue::onCrash;
    for (std::size_t i = 0; i < kCrashes.size(); ++i)
        sigaction(kCrashes.at(i), &action, &g_former.at(i));
    try {
        m_watch = std::thread(&RunRescue::watch, this);
    } catch (const std::exception&) { // no thread, or no memory for one
    }
}

RunRescue::~RunRescue()
{
    if (m_watch.joinable()) {
        {
            const std::lock_guard hold(m_mutex);
            m_isOver = true;
        }
        m_wake.notify_one();
        m_watch.join();
    }
    if (t_rescue != this)
        return;
    t_rescue = nullptr;
    restoreHandlers();
}

void RunRescue::finishNow(const char* why)
{
    sigset_t standstill; // finishing may take longer than that
    sigemptyset(&standstill);
    sigaddset(&standstill, SIGABRT);
    pthread_sigmask(SIG_BLOCK, &standstill, nullptr);
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

// Counts its own seconds: where the whole process was stopped for a while, both threads were.
void RunRescue::watch()
{
    std::unique_lock hold(m_mutex);
    auto seen = m_beats.load();
    for (unsigned still = 0; still < m_standstill;) {
        if (m_wake.wait_for(hold, std::chrono::seconds(1), [this] { return m_isOver; }))
            return;
        const auto beats = m_beats.load();
        still = beats == std::exchange(seen, beats) ? still + 1 : 0;
    }
    m_standsStill = true;
    pthread_kill(m_maker, SIGABRT);
    m_wake.wait(hold, [this] { return m_isOver; }); // until it is joined, or the process ends
}

// Not what a handler may do in general: the thread's own locks may be held. But a firmware that is
// cut is worse than a process that hangs, and the worker has none of them.
void RunRescue::onCrash(int signal)
{
    const bool standsStill = t_rescue != nullptr && t_rescue->m_standsStill;
    finishNow(standsStill ? "the window stood still" : "the window has crashed");
    restoreHandlers();
    raise(signal); // takes effect when this has returned
}
