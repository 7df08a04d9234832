// A printer's IEEE 1284 device ID over USB, and opening its interface where others may hold it for
// a moment. What a device announces about lengths is never used: only what really came counts.
//
// Threads: the caller's; may pause it for some seconds while an interface is busy, through
//          pauseMilliseconds. May throw std::bad_alloc.
#pragma once
#include "Platform/UsbHost.h"

namespace usbDeviceId {

// Exclusively; tries again, a second apart, while somebody else has it open.
UsbStatus open(UsbInterface& found, std::unique_ptr<UsbConnection>& connection);

// Asks for the device ID with its 2-byte length in front, which is given in this machine's order.
// *size: in, the buffer's bytes (4096 at most are used, and *size says so); out, what came.
UsbStatus request(UsbConnection& connection, unsigned char* buffer, unsigned long* size,
                  unsigned long timeoutMs);

// Open, ask, close. True when that worked, with or without such a key: the texts are then empty.
bool readModel(UsbInterface& found, std::string& model);
bool readVendorAndProduct(UsbInterface& found, std::string& vendor, std::string& product);

} // namespace usbDeviceId
