// SPDX-License-Identifier: MIT
// The recursive lock that every engine object embeds, and the scope that holds it.
//
// Owns:    one POSIX mutex and its attribute object.
// Threads: any; a thread that holds the lock may take it again, and must release it as often.
#pragma once
#include "VYM/ThreadSafety.h"

#include <pthread.h>

class Lockable {
public:
    virtual ~Lockable() = default;
    virtual int Lock() = 0; // 0, or the error of the operating system
    virtual int Unlock() = 0;

    Lockable(const Lockable&) = delete;
    Lockable& operator=(const Lockable&) = delete;

protected:
    Lockable() = default;
};

class VYM_CAPABILITY("lock") CRITSECT : public Lockable {
public:
    CRITSECT();
    ~CRITSECT() override;
    int Lock() override VYM_ACQUIRE();
    int Unlock() override VYM_RELEASE();

private:
    pthread_mutexattr_t m_attribute{};
    pthread_mutex_t m_mutex{};
};

// Holds a lock for one scope, released on every path out of it.
class VYM_SCOPED_CAPABILITY HoldLock {
public:
    explicit HoldLock(CRITSECT& lock) VYM_ACQUIRE(lock) : m_lock(lock) { m_lock.Lock(); }
    ~HoldLock() VYM_RELEASE() { m_lock.Unlock(); }
    HoldLock(const HoldLock&) = delete;
    HoldLock& operator=(const HoldLock&) = delete;

private:
    CRITSECT& m_lock;
};
