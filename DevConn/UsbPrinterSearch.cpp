// SPDX-License-Identifier: MIT
#include "DevConn/UsbPrinterSearch.h"

#include "DevConn/UsbDeviceId.h"
#include "DevConn/UsbPortName.h"
#include "VYM/vymParse.h"

#include <algorithm>

namespace usbPrinterSearch {

namespace {

constexpr std::uint8_t kPrinterClass = 7;
constexpr unsigned long kVendorId = VYMKIT_USB_VENDOR_ID; // from the build's settings
static_assert(kVendorId <= 0xFFFF, "a vendor ID has 16 bits");

std::uint16_t swapped(std::uint16_t value)
{
    return static_cast<std::uint16_t>(value << 8 | value >> 8);
}

bool isWanted(UsbInterface& found, const std::string& serial)
{
    if (!isMakersPrinter(found))
        return false;
    const bool hasParent = found.findParent();
    std::string model;
    if (!usbDeviceId::readModel(found, model) || !isModelOfPackage(model))
        return false;
    if (!hasParent) // no serial number to compare: the model must suffice
        return true;
    std::string text;
    return found.serialNumber(text) && usbPortName::bounded(text) == serial;
}

} // namespace

std::uint16_t makersVendorId()
{
    return static_cast<std::uint16_t>(kVendorId);
}

bool isMakersPrinter(UsbInterface& found)
{
    std::uint16_t vendor = 0;
    if (!found.vendorId(vendor))
        return false;
    // Some systems record the ID in the wire's byte order.
    if (vendor != makersVendorId() && vendor != swapped(makersVendorId()))
        return false;
    std::uint8_t interfaceClass = 0;
    return found.interfaceClass(interfaceClass) && interfaceClass == kPrinterClass;
}

bool isModelOfPackage(const std::string& model)
{
    std::vector<std::string> names;
    if (g_VymInfo.getDeviceIDModelName(names))
        return std::find(names.begin(), names.end(), model) != names.end();
    std::string target;
    if (!g_VymInfo.getTgmName(target))
        return false;
    auto shortened = model.substr(0, model.find('('));
    shortened = shortened.substr(0, shortened.find(' '));
    return shortened == target;
}

std::unique_ptr<UsbInterface> findPrinter(UsbHost& host, std::string_view port)
{
    std::string serial;
    UsbHost::InterfaceList found;
    if (!usbPortName::serialOf(port, serial) || !host.interfaces(found))
        return nullptr;
    for (auto& candidate : found) {
        if (isWanted(*candidate, serial))
            return std::move(candidate);
    }
    return nullptr;
}

} // namespace usbPrinterSearch
