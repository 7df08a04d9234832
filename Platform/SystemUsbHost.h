// SPDX-License-Identifier: MIT
// This build's USB host, for programs to plug in.
//
// Owns:    the host, until the process ends.
// Threads: any.
#pragma once
#include "Platform/UsbHost.h"

UsbHost* systemUsbHost(); // null: built without a USB library
