// SPDX-License-Identifier: MIT
// This system's locks, for programs to plug in: a Unix socket with a name in the abstract
// namespace, which the kernel gives to one process at a time and takes back when that process ends.
// It needs no folder, no permission and no clean-up, and works between all users of a computer
// (more exactly: of a network namespace).
//
// Owns:    the locks, until the process ends.
// Threads: any.
#pragma once
#include "Platform/PrinterLocks.h"

PrinterLocks* systemPrinterLocks();
