// SPDX-License-Identifier: MIT
// Memory that runs out for the product only: its n-th allocation fails, once or for good. The
// simulation's own allocations, inside an Outside, always succeed and are not counted.
//
// Threads: one.
#pragma once
#include <cstdint>

namespace sim {

// From now on the product's n-th allocation (from 1) fails; forGood: every later one, too.
void failAllocation(std::uint64_t n, bool forGood);
void allocateSafely(); // no allocation fails or is counted any more
bool allocationFailed(); // since failAllocation

// In this scope the simulation works, not the product.
class Outside {
public:
    Outside();
    ~Outside();
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;
};

} // namespace sim
