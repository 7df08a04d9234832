// SPDX-License-Identifier: MIT
#include "CLI/Conclusion.h"
#include "CLI/PrinterLookup.h"

Outcome runPrinters(Workplace& place)
{
    const auto looked = lookUpPrinters(place);
    if (looked.stop != StopCause::none)
        return concludeLookupStopped(Command::printers, looked.stop);
    return concludePrinters(printerFacts(looked.made, place.options.all));
}
