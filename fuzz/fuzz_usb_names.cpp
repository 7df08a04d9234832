// SPDX-License-Identifier: MIT
// A printer's names on the bus: a serial number, vendor and product from the system's records, and
// any bytes as device ID. For every input, the port string is well formed, and the texts are part
// of the input.
//
// The input: serial number, vendor and product, each up to a NUL, the length that the transfer
// claims (2 bytes, 0: the true one), then the whole reply to the device-ID request.
#include "DevConn/DevConnMgr.h"
#include "DevConn/UsbDeviceId.h"
#include "DevConn/UsbForbidden.h"
#include "DevConn/UsbPortName.h"
#include "fuzz/Fuzz.h"
#include "tests/support/ScriptedUsbHost.h"

#include <cctype>

namespace {

void checkText(const std::string& text, const ScriptedPrinter& printer)
{
    const auto& reply = *printer.wholeReply;
    require(text.find('\0') == std::string::npos, "a text ends at its NUL");
    require(text.find(';') == std::string::npos, "a value ends at its semicolon");
    require(text.empty() || printer.claimedLength || reply.find(text) != std::string::npos,
            "a text is what came");
    require(text.size() < 256, "a text is no longer than what was asked for");
}

// The properties of a port string, for names that leave it readable.
void checkUrl(const std::string& url, const std::string& vendor, const std::string& product,
              const std::string& serial)
{
    require(url.rfind("usb://", 0) == 0, "a port string has its scheme");
    const auto names = url.substr(0, url.size() - serial.size());
    require(std::all_of(names.begin(), names.end(),
                        [](unsigned char c) { return c > ' ' && c < 0x7F; }),
            "names are escaped");
    const auto escaped = usbPortName::percentEscaped(product, "/()");
    const bool readable = !vendor.empty() && vendor.find('/') == std::string::npos
        && escaped.size() < usbPortName::kLongestText
        && (vendor + '/' + escaped).find("serial=") == std::string::npos;
    std::string found;
    if (readable)
        require(usbPortName::serialOf(url, found) && found == serial, "the serial is found again");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    ScriptedUsbHost host;
    auto& printer = host.printer();
    printer.serial = std::string(input.until('\0'));
    printer.vendorName = std::string(input.until('\0'));
    printer.productName = std::string(input.until('\0'));
    if (const auto claimed = input.number())
        printer.claimedLength = claimed;
    printer.wholeReply = std::string(input.text(size));

    ScriptedInterface found(printer, host.time);
    std::string model;
    std::string vendor;
    std::string product;
    require(usbDeviceId::readModel(found, model), "the request went through");
    require(usbDeviceId::readVendorAndProduct(found, vendor, product), "and again");
    checkText(model, printer);
    checkText(vendor, printer);
    checkText(product, printer);
    std::string url;
    require(DevConnMgr::MacUSBPortURL(found, url), "a printer is counted");
    checkUrl(url, vendor, product, usbPortName::bounded(*printer.serial));

    printer.forbidden = true;
    const auto forbidden = usbForbidden::printers(host);
    require(forbidden.size() == 1, "a forbidden printer is named");
    require(DevConnMgr::MacUSBPortURL(found, url), "and counted");
    require(forbidden.front().m_port == url, "in the same way");
    require(printer.open == 0, "nothing stays open");
    return 0;
}
