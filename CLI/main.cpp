#include "CLI/CommandLine.h"
#include "Platform/SystemUsbHost.h"

int main(int argc, char** argv)
{
    UsbHost::plugIn(systemUsbHost());
    return runCommandLine(argc, argv);
}
