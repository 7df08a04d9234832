// SPDX-License-Identifier: MIT
// Deletes a process-wide instance when the process ends. The instance registers itself in its
// constructor and withdraws in its destructor, so that it is never deleted twice.
//
// Threads: none of its own; used while the instance is built and at exit.
#pragma once

template <class T> class SingletonKiller {
public:
    // constexpr: ready before another static object can construct the instance.
    constexpr SingletonKiller() = default;
    ~SingletonKiller() { delete m_instance; }
    SingletonKiller(const SingletonKiller&) = delete;
    SingletonKiller& operator=(const SingletonKiller&) = delete;

    void set(T* instance) { m_instance = instance; }

private:
    T* m_instance = nullptr;
};
