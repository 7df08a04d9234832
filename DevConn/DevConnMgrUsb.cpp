// SPDX-License-Identifier: MIT
// The manager's list of the printers attached by USB.
#include "DevConn/DevConnMgr.h"
#include "DevConn/UsbDeviceId.h"
#include "DevConn/UsbPortName.h"
#include "DevConn/UsbPrinterSearch.h"
#include "VYM/vymUtil.h"

#include <cstring>
#include <new>

namespace {

// Calls use(url) for every interface that counts; false if the bus cannot be read.
template <typename Use> bool forEachPort(UsbHost& host, Use use)
{
    UsbHost::InterfaceList found;
    if (!host.interfaces(found))
        return false;
    std::string url;
    for (auto& service : found) {
        if (DevConnMgr::MacUSBPortURL(*service, url))
            use(url);
    }
    return true;
}

// One block: the records, and the strings packed after them. It is zero-filled, and its last byte
// stays 0: a record without a string points to it, so every record has a string from the start.
class PortBlock {
public:
    PortBlock(unsigned long count, unsigned long textSize)
        : m_size(count * sizeof(_PORT_INFO_1A) + textSize), m_count(count),
          m_ports(static_cast<_PORT_INFO_1A*>(AllocMem(m_size)))
    {
        if (m_ports == nullptr)
            return;
        m_text = reinterpret_cast<char*>(m_ports + count);
        for (unsigned long i = 0; i < count; ++i)
            m_ports[i].m_portName = lastByte();
    }
    // Printers come and go between the two passes; a printer without room is left out.
    void add(const std::string& url)
    {
        if (m_filled == m_count)
            return;
        const auto room = static_cast<std::size_t>(lastByte() - m_text) + 1;
        if (url.size() < room) {
            std::memcpy(m_text, url.c_str(), url.size() + 1);
            m_ports[m_filled].m_portName = m_text;
            m_text += url.size() < room - 1 ? url.size() + 1 : url.size();
        }
        ++m_filled;
    }
    [[nodiscard]] _PORT_INFO_1A* ports() const { return m_ports; }

private:
    [[nodiscard]] char* lastByte() const { return reinterpret_cast<char*>(m_ports) + m_size - 1; }

    unsigned long m_size;
    unsigned long m_count;
    unsigned long m_filled = 0;
    _PORT_INFO_1A* m_ports;
    char* m_text = nullptr; // the place of the next string
};

std::string named(bool (UsbInterface::*read)(std::string&), UsbInterface& service, bool& complete)
{
    std::string text;
    if (!(service.*read)(text))
        complete = false;
    return usbPortName::bounded(text);
}

} // namespace

long DevConnMgr::EnumUsbPort(_PORT_INFO_1A** ports)
{
    if (ports == nullptr)
        return 0;
    try {
        return MacEnumUSBPort(ports);
    } catch (const std::bad_alloc&) {
        FreeUsbPort(*ports); // null, or a partly filled block
        *ports = nullptr;
        return 0;
    }
}

long DevConnMgr::MacEnumUSBPort(_PORT_INFO_1A** ports)
{
    *ports = nullptr;
    auto* host = UsbHost::plugged();
    if (host == nullptr)
        return 0;
    unsigned long count = 0;
    unsigned long textSize = 0;
    const auto measure = [&](const std::string& url) {
        ++count;
        textSize += url.size() + 1;
    };
    if (!forEachPort(*host, measure) || count == 0)
        return 0;
    PortBlock block(count, textSize);
    *ports = block.ports();
    if (*ports == nullptr)
        return 0;
    // Returns the first pass's number, even if the bus has changed since.
    forEachPort(*host, [&](const std::string& url) { block.add(url); });
    return static_cast<long>(count);
}

void DevConnMgr::FreeUsbPort(_PORT_INFO_1A* ports)
{
    FreeMem(ports);
}

bool DevConnMgr::MacUSBPortURL(UsbInterface& service, std::string& url)
{
    url.clear();
    if (!usbPrinterSearch::isMakersPrinter(service))
        return false;
    if (!service.findParent())
        return true;
    bool complete = true;
    const auto serial = named(&UsbInterface::serialNumber, service, complete);
    if (!complete)
        return true;
    std::string vendor;
    std::string product;
    if (!getVendorProductName(service, vendor, product)) {
        vendor = named(&UsbInterface::vendorName, service, complete);
        product = named(&UsbInterface::productName, service, complete);
    }
    if (complete)
        url = usbPortName::make(vendor, product, serial);
    return true;
}

bool DevConnMgr::getVendorProductName(UsbInterface& service, std::string& vendor,
                                      std::string& product)
{
    return usbDeviceId::readVendorAndProduct(service, vendor, product);
}
