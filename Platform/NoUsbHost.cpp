// SPDX-License-Identifier: MIT
// For builds without a USB library.
#include "Platform/SystemUsbHost.h"

UsbHost* systemUsbHost()
{
    return nullptr;
}
