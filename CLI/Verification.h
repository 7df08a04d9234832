// After an update: does the printer come back with what was sent?
//
// Threads: called on the command's; each query runs on a thread of its own, so that signals and the
//          deadline are noticed meanwhile.
#pragma once
#include "CLI/Commands.h"

// Queries the printer's versions again and again, for up to so many seconds: a printer that is
// away, busy or still has the old version may be about to restart. Writes the verdict into the
// outcome of an update that ended well, with what each firmware was found to be.
void verify(const PackageFacts& package, Workplace& place, Destination& destination, double seconds,
            Outcome& outcome);
