// The command line on the real clock, with every pause and event wait cut to a twentieth.
#include "CLI/CommandLine.h"
#include "Platform/SystemPrintServer.h"
#include "Platform/SystemUsbHost.h"
#include "tests/support/ScriptedTime.h"

int main(int argc, char** argv)
{
    constexpr unsigned long kFactor = 20;
    const ShortPauses pauses(kFactor, VYMKIT_TEST_SLOWNESS);
    UsbHost::plugIn(systemUsbHost());
    const auto printServer = makeSystemPrintServer();
    return runCommandLine(argc, argv, printServer.get());
}
