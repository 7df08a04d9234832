// SPDX-License-Identifier: MIT
#include "tests/support/FailingMemory.h"

#include "tests/support/ReplacedNew.h"

namespace {

constexpr int kPlenty = -1;
thread_local int t_left = kPlenty;

} // namespace

bool memoryRunsOut()
{
    if (t_left > 0)
        --t_left;
    else if (t_left == 0)
        return true;
    return false;
}

MemoryShortage::MemoryShortage(int allowed)
{
    t_left = allowed;
}

MemoryShortage::~MemoryShortage()
{
    t_left = kPlenty;
}
