// Stands in where no library for USB was there to build with.
#include "Platform/SystemUsbHost.h"

UsbHost* systemUsbHost()
{
    return nullptr;
}
