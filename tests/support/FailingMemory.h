// SPDX-License-Identifier: MIT
// Memory that runs out when a test says so. A program that lists FailingMemory.cpp among its
// sources gets its operators new and delete from there.
//
// Threads: a shortage affects one thread; other threads still get memory.
#pragma once

// While it lives, the given number of this thread's allocations succeed and all later ones fail.
class MemoryShortage {
public:
    explicit MemoryShortage(int allowed);
    ~MemoryShortage();
    MemoryShortage(const MemoryShortage&) = delete;
    MemoryShortage& operator=(const MemoryShortage&) = delete;
};
