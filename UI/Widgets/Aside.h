// Work that takes its time, done beside the interface while the windows go on living.
#pragma once
#include <functional>

// Runs the work on a thread of its own and returns when it is done. Events are handled meanwhile:
// whatever they may start has to bear that the caller has not returned yet. Where no thread can be
// had, the work is done in place.
void doAside(const std::function<void()>& work);
