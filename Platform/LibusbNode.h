// SPDX-License-Identifier: MIT
// The device node that the kernel's printer driver (usblp) gives an interface, and the process that
// has it open. A driver that is detached while a process prints through it takes the job with it.
//
// Threads: any; reads the system's records and opens the node for a moment where they do not tell.
// May throw std::bad_alloc.
#pragma once
#include "Platform/LibusbDevice.h"

#include <string>

namespace libusb {

// The device's folder in the system's records.
std::string folderOf(libusb_device& device);
// "/dev/usb/lp0", or empty where the interface has no node.
std::string printerNode(const std::string& deviceFolder, const Facts& facts);
// "lp (process 123)" for a process that has the file open, as far as this user may see it; or
// empty.
std::string holderOf(const std::string& file);
// Whether a process uses the node; false for an empty one.
bool isInUse(const std::string& node);

} // namespace libusb
