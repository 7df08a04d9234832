// The host that this build has for USB, for programs to plug in.
//
// Owns:    the host, until the process ends.
// Threads: any.
#pragma once
#include "Platform/UsbHost.h"

UsbHost* systemUsbHost(); // null: built without one
