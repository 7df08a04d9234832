// Memory that runs out for the product alone: its n-th allocation fails, once or for good. What the
// simulation allocates for itself, inside an Outside, always succeeds and is not counted.
//
// Threads: one.
#pragma once
#include <cstdint>

namespace sim {

// From now on the product's n-th allocation (from 1) fails; forGood: every later one, too.
void failAllocation(std::uint64_t n, bool forGood);
void allocateSafely(); // nothing fails any more, nothing is counted
bool allocationFailed(); // since failAllocation

// The simulation works, and not the product, for the length of this scope.
class Outside {
public:
    Outside();
    ~Outside();
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;
};

} // namespace sim
