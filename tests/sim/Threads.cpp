// SPDX-License-Identifier: MIT
// The threads of a simulated process: there is one real thread, and a wait lets the others run. The
// linker replaces the system's calls by these (--wrap). A new thread runs inside the first wait of
// its creator; a wait for its end finds it ended or lets it end later.
#include "tests/sim/Threads.h"

#include "tests/sim/Memory.h"
#include "tests/sim/World.h"

#include <cerrno>
#include <map>
#include <pthread.h>
#include <sched.h>

namespace {

void* (*g_routine)(void*) = nullptr; // created and not running yet
void* g_argument = nullptr;
bool g_refused = false;
bool g_isLeft = false; // created and not joined
std::map<const void*, std::uint64_t> g_signals; // the number of signals of each condition

void runMadeThread()
{
    auto* routine = g_routine;
    g_routine = nullptr;
    if (routine != nullptr)
        routine(g_argument);
}

// The wait itself; the mutex is free meanwhile, as in a real one.
int waitFor(pthread_cond_t* condition, pthread_mutex_t* mutex, sim::Micros deadline)
{
    pthread_mutex_unlock(mutex);
    bool signalled = false;
    {
        const sim::Outside outside;
        const auto before = g_signals[condition];
        signalled = sim::World::current().waitUntil(deadline,
                                                    [&] { return g_signals[condition] != before; });
    }
    pthread_mutex_lock(mutex);
    return signalled ? 0 : ETIMEDOUT;
}

int timedWait(pthread_cond_t* condition, pthread_mutex_t* mutex)
{
    auto& world = sim::World::current();
    world.trace("worker   waits %lu ms for an event", world.eventWait());
    return waitFor(condition, mutex, world.now() + world.eventWait() * sim::kMilli);
}

int noteSignal(pthread_cond_t* condition)
{
    const sim::Outside outside;
    ++g_signals[condition];
    return 0;
}

} // namespace

namespace sim {

void refuseThreads(bool refused)
{
    g_refused = refused;
    g_signals.clear();
    g_routine = nullptr;
    g_isLeft = false;
}

bool threadIsLeft()
{
    return g_isLeft;
}

} // namespace sim

extern "C" {

int __wrap_pthread_create(pthread_t* thread, const pthread_attr_t* /*attributes*/,
                          void* (*routine)(void*), void* argument)
{
    if (g_refused)
        return EAGAIN;
    *thread = pthread_self();
    g_routine = routine;
    g_argument = argument;
    g_isLeft = true;
    return 0;
}

// The thread's work ends by itself; then the wait in which it runs returns.
int __wrap_pthread_join(pthread_t /*thread*/, void** /*result*/)
{
    runMadeThread();
    g_isLeft = false;
    return 0;
}

int __wrap_pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex)
{
    if (g_routine == nullptr)
        return waitFor(condition, mutex, sim::kForever);
    pthread_mutex_unlock(mutex);
    runMadeThread();
    pthread_mutex_lock(mutex);
    return 0;
}

int __wrap_pthread_cond_timedwait(pthread_cond_t* condition, pthread_mutex_t* mutex,
                                  const timespec* /*until*/)
{
    return timedWait(condition, mutex);
}

int __wrap_pthread_cond_clockwait(pthread_cond_t* condition, pthread_mutex_t* mutex,
                                  clockid_t /*clock*/, const timespec* /*until*/)
{
    return timedWait(condition, mutex);
}

int __wrap_pthread_cond_signal(pthread_cond_t* condition)
{
    return noteSignal(condition);
}

int __wrap_pthread_cond_broadcast(pthread_cond_t* condition)
{
    return noteSignal(condition);
}

int __wrap_sched_yield()
{
    // Leak checkers yield when all runs are over.
    if (!sim::World::exists())
        return 0;
    const sim::Outside outside;
    sim::World::current().yield();
    return 0;
}

} // extern "C"
