// SPDX-License-Identifier: MIT
#include "UI/vymThreadRefusal.h"

#include "VYM/vymThread.h"

bool vymThread_RefuseFirmware(void* worker)
{
    return worker != nullptr && static_cast<vymThread*>(worker)->RefuseFirmware();
}
