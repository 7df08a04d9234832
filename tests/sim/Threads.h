// What a run decides about its threads; the rest of Threads.cpp stands in for the system's calls.
#pragma once

namespace sim {

// Forgets the run before; refused: no thread can be made in this one.
void refuseThreads(bool refused);

} // namespace sim
