// SPDX-License-Identifier: MIT
#include "CLI/CommandLine.h"
#include "Platform/StandardStreams.h"
#include "Platform/SystemPrintServer.h"
#include "Platform/SystemPrinterLocks.h"
#include "Platform/SystemUsbHost.h"

#include <memory>
#include <new>

int main(int argc, char** argv)
{
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
