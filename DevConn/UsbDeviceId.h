// SPDX-License-Identifier: MIT
// Reads a printer's IEEE 1284 device ID over USB, and opens its interface, which others may hold
// for a moment. Lengths that a device announces are ignored: only the bytes that arrived count.
//
// Threads: the caller's; may pause it for some seconds while an interface is busy, through
//          pauseMilliseconds. May throw std::bad_alloc.
#pragma once
#include "Platform/UsbHost.h"

namespace usbDeviceId {

// Opens it exclusively; while another program has it open, tries again a second later.
UsbStatus open(UsbInterface& found, std::unique_ptr<UsbConnection>& connection);

// Requests the device ID with its 2-byte length in front, which is converted to this machine's byte
// order. *size: in, the buffer's size (at most 4096 are used); out, the number of bytes received.
UsbStatus request(UsbConnection& connection, unsigned char* buffer, unsigned long* size,
                  unsigned long timeoutMs);

// Open, read, close. True if that worked; without such a key the texts are then empty.
bool readModel(UsbInterface& found, std::string& model);
bool readVendorAndProduct(UsbInterface& found, std::string& vendor, std::string& product);

} // namespace usbDeviceId
