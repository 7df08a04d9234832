// SPDX-License-Identifier: MIT
// A debug text of the engine, formatted into a buffer of fixed size: long texts of a printer or a
// package are cut. Without a sink it formats nothing.
//
// Threads: any. Never throws.
#pragma once
#include "VYM/vymMac.h"

#include <cstdio>

template <class... Values> void debugText(const char* format, Values... values)
{
    constexpr unsigned kLevel = 1;
    if (!isDebugTextHeard(kLevel))
        return;
    char text[256] = {};
    std::snprintf(text, sizeof text, format, values...);
    outputDebugMsg(text, kLevel);
}
