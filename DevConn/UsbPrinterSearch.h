// SPDX-License-Identifier: MIT
// Finds the maker's printers among the interfaces on the bus, and the one that a port string and
// the loaded package description select.
//
// Threads: any; reads g_VymInfo, which has its own lock. May throw std::bad_alloc.
#pragma once
#include "Platform/UsbHost.h"

#include <string_view>

namespace usbPrinterSearch {

// The vendor ID of this build's maker.
std::uint16_t makersVendorId();
// Whether its class is printer and its vendor the maker, in either byte order.
bool isMakersPrinter(UsbInterface& found);
// Whether the loaded package is for this device-ID model.
bool isModelOfPackage(const std::string& model);
// The first printer of the package's models with the port string's serial number, or null.
std::unique_ptr<UsbInterface> findPrinter(UsbHost& host, std::string_view port);

} // namespace usbPrinterSearch
