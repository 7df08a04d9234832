// SPDX-License-Identifier: MIT
#include "UI/vymThreadPrinter.h"

#include "VYM/vymThread.h"

#include <new>

bool vymThread_GetPrinterModel(void* worker, std::string& model)
{
    model.clear();
    try {
        return worker != nullptr && static_cast<vymThread*>(worker)->GetPrinterModel(model);
    } catch (const std::bad_alloc&) {
        return false;
    }
}
