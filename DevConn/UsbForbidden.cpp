// SPDX-License-Identifier: MIT
#include "DevConn/UsbForbidden.h"

#include "DevConn/PermissionRule.h"
#include "DevConn/UsbPortName.h"
#include "DevConn/UsbPrinterSearch.h"

#include <algorithm>

namespace usbForbidden {

namespace {

Printer named(UsbInterface& found)
{
    const auto known = [&](bool (UsbInterface::*read)(std::string&)) {
        std::string text;
        return (found.*read)(text) ? usbPortName::bounded(text) : std::string();
    };
    Printer printer;
    if (found.findParent()) {
        printer.m_vendor = known(&UsbInterface::vendorName);
        printer.m_product = known(&UsbInterface::productName);
        printer.m_serial = known(&UsbInterface::serialNumber);
    }
    printer.m_port = usbPortName::make(printer.m_vendor, printer.m_product, printer.m_serial);
    return printer;
}

} // namespace

std::vector<Printer> printers(UsbHost& host)
{
    std::vector<Printer> forbidden;
    UsbHost::InterfaceList found;
    if (!host.interfaces(found))
        return forbidden;
    for (auto& one : found) {
        if (!usbPrinterSearch::isMakersPrinter(*one) || !one->isForbidden())
            continue;
        auto printer = named(*one);
        const auto same =
            std::find_if(forbidden.begin(), forbidden.end(), [&](const Printer& other) {
                return !printer.m_serial.empty() && other.m_port == printer.m_port;
            });
        if (same != forbidden.end())
            ++same->m_interfaces;
        else
            forbidden.push_back(std::move(printer));
    }
    return forbidden;
}

bool holds(UsbHost& host, std::string_view port)
{
    std::string serial;
    if (!usbPortName::serialOf(port, serial))
        return false;
    const auto forbidden = printers(host);
    return std::any_of(forbidden.begin(), forbidden.end(),
                       [&](const Printer& printer) { return printer.m_serial == serial; });
}

std::string_view permissionRule()
{
    return kPermissionRule;
}

} // namespace usbForbidden
