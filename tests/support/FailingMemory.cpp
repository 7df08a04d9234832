#include "tests/support/FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

constexpr int kPlenty = -1;
thread_local int t_left = kPlenty;

void* allocate(std::size_t size)
{
    if (t_left == 0)
        return nullptr;
    if (t_left != kPlenty)
        --t_left;
    return std::malloc(size != 0 ? size : 1);
}

} // namespace

MemoryShortage::MemoryShortage(int allowed)
{
    t_left = allowed;
}

MemoryShortage::~MemoryShortage()
{
    t_left = kPlenty;
}

void* operator new(std::size_t size)
{
    if (void* block = allocate(size))
        return block;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept
{
    return allocate(size);
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    std::free(block);
}
