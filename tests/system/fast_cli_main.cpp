// SPDX-License-Identifier: MIT
// The command line on the real clock, with every pause and event wait cut to a twentieth. A second
// of its clock lasts VYMKIT_TEST_SLOWNESS real ones, or as many as the variable of that name says.
#include "CLI/CommandLine.h"
#include "Platform/StandardStreams.h"
#include "Platform/SystemPrintServer.h"
#include "Platform/SystemPrinterLocks.h"
#include "Platform/SystemUsbHost.h"
#include "tests/support/ScriptedTime.h"

#include <cstdlib>
#include <memory>
#include <new>

int main(int argc, char** argv)
{
    constexpr unsigned long kFactor = 20;
    const char* const slowness = std::getenv("VYMKIT_TEST_SLOWNESS");
    const ShortPauses pauses(kFactor,
                             slowness != nullptr ? static_cast<unsigned>(std::atoi(slowness))
                                                 : VYMKIT_TEST_SLOWNESS);
    occupyStandardStreams();
    UsbHost::plugIn(systemUsbHost());
    PrinterLocks::plugIn(systemPrinterLocks());
    std::unique_ptr<PrintServer> printServer;
    try {
        printServer = makeSystemPrintServer();
    } catch (const std::bad_alloc&) {
        return endWithoutMemory(argc, argv);
    }
    return runCommandLine(argc, argv, printServer.get());
}
