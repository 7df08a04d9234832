// Looks for printers on a thread of its own, and shows meanwhile what is being asked. A signal or
// the time limit ends it at once: what is being asked may take seconds to answer, but nothing that
// it could answer is wanted any more.
//
// Threads: called on the command's.
#pragma once
#include "CLI/Commands.h"
#include "UI/Printers/TargetPrinters.h"

struct LookupResult {
    TargetPrinters made;
    StopCause stop = StopCause::none; // other than none: nobody knows what there is
};

LookupResult lookUpPrinters(Workplace& place);
