#include "CLI/CommandLine.h"
#include "Platform/SystemPrintServer.h"
#include "Platform/SystemUsbHost.h"

int main(int argc, char** argv)
{
    UsbHost::plugIn(systemUsbHost());
    const auto printServer = makeSystemPrintServer();
    return runCommandLine(argc, argv, printServer.get());
}
