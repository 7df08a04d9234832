// SPDX-License-Identifier: MIT
#include "tests/sim/Memory.h"

#include "tests/support/ReplacedNew.h"

namespace {

std::uint64_t g_left = 0; // 0: nothing fails
bool g_forGood = false;
bool g_failed = false;
int g_outside = 0;

} // namespace

bool memoryRunsOut()
{
    if (g_outside != 0)
        return false;
    if (g_failed && g_forGood)
        return true;
    if (g_left == 0 || --g_left != 0)
        return false;
    return g_failed = true;
}

namespace sim {

void failAllocation(std::uint64_t n, bool forGood)
{
    g_left = n;
    g_forGood = forGood;
    g_failed = false;
}

void allocateSafely()
{
    g_left = 0;
    g_forGood = false;
}

bool allocationFailed()
{
    return g_failed;
}

Outside::Outside()
{
    ++g_outside;
}

Outside::~Outside()
{
    --g_outside;
}

} // namespace sim

// The engine's blocks come from here, its containers from the operators.
extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return memoryRunsOut() ? nullptr : __real_calloc(count, size);
}
