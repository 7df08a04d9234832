// SPDX-License-Identifier: MIT
// Checks after an update whether the printer returns with the firmware that was sent.
//
// Threads: the command's; each query runs on a thread of its own, so that signals and the deadline
//          are noticed meanwhile.
#pragma once
#include "CLI/Commands.h"

// Queries the printer's versions again and again, for up to this many seconds: a printer that is
// away, busy or still has the old version may be about to restart. Writes the verdict and the
// installed versions into the outcome, which must be that of a successful update.
void verify(const PackageFacts& package, Workplace& place, Destination& destination, double seconds,
            Outcome& outcome);
