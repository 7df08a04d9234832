// SPDX-License-Identifier: MIT
// The operators new and delete of a program in which memory can run out. Include this in exactly
// one source of the program: that source defines memoryRunsOut.
//
// Threads: those of the source.
#pragma once
#include <cstdlib>
#include <new>

bool memoryRunsOut(); // called for each allocation; true: it fails

inline void* allocateUnlessShort(std::size_t size)
{
    return memoryRunsOut() ? nullptr : std::malloc(size != 0 ? size : 1);
}

void* operator new(std::size_t size)
{
    if (void* block = allocateUnlessShort(size))
        return block;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept
{
    return allocateUnlessShort(size);
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    std::free(block);
}
