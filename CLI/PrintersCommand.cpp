// SPDX-License-Identifier: MIT
#include "CLI/Conclusion.h"
#include "CLI/PrinterLookup.h"
#include "UI/Support/UsbSurvey.h"

Outcome runPrinters(Workplace& place)
{
    const auto looked = lookUpPrinters(place);
    if (looked.stop != StopCause::none)
        return concludeLookupStopped(Command::printers, looked.stop);
    auto facts = printerFacts(looked.made, place.options.all);
    warnOfHolders(facts, surveyedVendor(), "");
    return concludePrinters(facts);
}
