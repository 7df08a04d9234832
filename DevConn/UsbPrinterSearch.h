// Which interfaces on the bus are printers of the maker, and which of them a port string and the
// loaded package description mean.
//
// Threads: any; asks g_VymInfo, which has its own lock. May throw std::bad_alloc.
#pragma once
#include "Platform/UsbHost.h"

#include <string_view>

namespace usbPrinterSearch {

// The vendor ID that this build was made for.
std::uint16_t makersVendorId();
// An interface of the printer class whose vendor is the maker, in either byte order.
bool isMakersPrinter(UsbInterface& found);
// Is this device-ID model one that the loaded package is for?
bool isModelOfPackage(const std::string& model);
// The first printer of the package's models with the port string's serial; null: none.
std::unique_ptr<UsbInterface> findPrinter(UsbHost& host, std::string_view port);

} // namespace usbPrinterSearch
