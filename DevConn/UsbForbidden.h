// The maker's printers that are on the bus and that this user may not open: they can be named, not
// used. No device is asked anything; what is known comes from the system's records.
//
// Threads: any. May throw std::bad_alloc.
#pragma once
#include "Platform/UsbHost.h"

#include <string_view>

namespace usbForbidden {

struct Printer {
    std::string m_vendor; // texts are empty where they are not known
    std::string m_product;
    std::string m_serial;
    std::string m_port; // as the list of all printers has it, if it can name the printer
    unsigned m_interfaces = 1; // of the printer class: its places in that list
};

// In the bus's order; a device that has several printer interfaces once.
std::vector<Printer> printers(UsbHost& host);
// Is the printer with this port string's serial one of them?
bool holds(UsbHost& host, std::string_view port);
// The udev rule that lets the users at this machine's seat open the maker's printers, one line.
std::string_view permissionRule();

} // namespace usbForbidden
