// SPDX-License-Identifier: MIT
// A run's settings of its threads; the rest of Threads.cpp replaces the system's calls.
#pragma once

namespace sim {

// Forgets the previous run; refused: no thread can be created in this one.
void refuseThreads(bool refused);
// A thread of this run was created, and its end has not been waited for.
bool threadIsLeft();

} // namespace sim
