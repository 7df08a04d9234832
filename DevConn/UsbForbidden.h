// SPDX-License-Identifier: MIT
// The maker's printers on the bus that this user may not open: they can be named, but not used.
// Sends the devices nothing; all facts come from the system's records.
//
// Threads: any. May throw std::bad_alloc.
#pragma once
#include "Platform/UsbHost.h"

#include <string_view>

namespace usbForbidden {

struct Printer {
    std::string m_vendor; // unknown texts are empty
    std::string m_product;
    std::string m_serial;
    std::string m_port; // the same as in the list of all printers, if that has one
    unsigned m_interfaces = 1; // of the printer class; each is an entry of that list
};

// In the bus's order; a device with several printer interfaces appears once.
std::vector<Printer> printers(UsbHost& host);
// Whether the printer with this port string's serial number is one of them.
bool holds(UsbHost& host, std::string_view port);
// The udev rule, one line, that lets the users at this machine's seat open the maker's printers.
std::string_view permissionRule();

} // namespace usbForbidden
