// SPDX-License-Identifier: MIT
// Searches for printers on a thread of its own, and shows meanwhile which device or server is being
// queried. A signal or the time limit ends it at once, without waiting for the current answer,
// which may take seconds and is no longer needed.
//
// Threads: the command's.
#pragma once
#include "CLI/Commands.h"
#include "UI/Printers/TargetPrinters.h"

struct LookupResult {
    TargetPrinters made;
    StopCause stop = StopCause::none; // other than none: the result is unknown
};

LookupResult lookUpPrinters(Workplace& place);
