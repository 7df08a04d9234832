// A debug text of the engine, formatted into a buffer of bounded size: what a printer or a package
// put into it may be cut, and never grows anything. Without a sink nothing is formatted.
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
