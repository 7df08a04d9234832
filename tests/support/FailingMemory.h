// Memory that runs out when a test says so. A program that names FailingMemory.cpp among its
// sources has the operators new and delete from there.
//
// Threads: a shortage is one thread's own; other threads go on getting memory.
#pragma once

// From its construction on, so many allocations succeed and every later one of this thread fails.
class MemoryShortage {
public:
    explicit MemoryShortage(int allowed);
    ~MemoryShortage();
    MemoryShortage(const MemoryShortage&) = delete;
    MemoryShortage& operator=(const MemoryShortage&) = delete;
};
