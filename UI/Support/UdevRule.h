// SPDX-License-Identifier: MIT
// Words about the udev rule that lets users at this computer open the maker's USB printers.
//
// Threads: any. Pure.
#pragma once
#include "UI/Printers/PrinterHelp.h"

#include <string>

// How to install it, as whole sentences; the line is shown beside them.
std::string udevAdvice();
