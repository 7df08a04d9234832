// The command line with every pause and event wait a twentieth of its length, on the real clock.
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
