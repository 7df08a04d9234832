// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/UsbIdentity.h"

#include <algorithm>
#include <array>
#include <limits>
#include <linux/usb/ch9.h>
#include <linux/usb/functionfs.h>

namespace vymprinter {
namespace {

constexpr std::uint8_t kPrinterClass = USB_CLASS_PRINTER;
constexpr std::uint8_t kPrinterSubclass = 1;
constexpr std::uint8_t kBidirectional = 2;
constexpr std::uint8_t kBulkOut = 1; // the controller replaces these numbers by its own
constexpr std::uint8_t kBulkIn = 2 | USB_DIR_IN;
constexpr std::uint8_t kInterruptIn = 3 | USB_DIR_IN;
constexpr std::uint8_t kPipes = 3;
constexpr std::uint16_t kFullSpeedPacket = 64;
constexpr std::uint16_t kInterruptPacket = 8;
constexpr std::uint8_t kInterruptInterval = 9; // long enough at both speeds
constexpr std::uint32_t kDescriptors = 1 + kPipes; // at each speed
constexpr std::size_t kLengthPrefix = 2;

// FunctionFS reads little-endian.
void append(Bytes& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

void appendPipe(Bytes& bytes, std::uint8_t address, std::uint8_t type, std::uint16_t packet,
                std::uint8_t interval)
{
    bytes.insert(bytes.end(), {USB_DT_ENDPOINT_SIZE, USB_DT_ENDPOINT, address, type});
    append(bytes, packet, 2);
    bytes.push_back(interval);
}

void appendInterface(Bytes& bytes, std::uint16_t bulkPacket)
{
    bytes.insert(bytes.end(),
                 {USB_DT_INTERFACE_SIZE, USB_DT_INTERFACE, 0, 0, kPipes, kPrinterClass,
                  kPrinterSubclass, kBidirectional, 0});
    appendPipe(bytes, kBulkOut, USB_ENDPOINT_XFER_BULK, bulkPacket, 0);
    appendPipe(bytes, kBulkIn, USB_ENDPOINT_XFER_BULK, bulkPacket, 0);
    appendPipe(bytes, kInterruptIn, USB_ENDPOINT_XFER_INT, kInterruptPacket, kInterruptInterval);
}

// A head with magic number and total length, then the rest.
Bytes headed(std::uint32_t magic, const Bytes& rest)
{
    Bytes bytes;
    append(bytes, magic, 4);
    append(bytes, static_cast<std::uint32_t>(rest.size() + 8), 4);
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

} // namespace

Bytes deviceIdReply(const UsbIdentity& identity)
{
    const auto made = "MFG:" + identity.maker + ";CMD:VYM;MDL:" + identity.productName
        + ";CLS:PRINTER;DES:" + identity.maker + ' ' + identity.productName + ';';
    const auto text = identity.deviceId.value_or(made);
    const auto whole = std::min<std::size_t>(text.size() + kLengthPrefix,
                                             std::numeric_limits<std::uint16_t>::max());
    Bytes reply(whole);
    put16(reply, 0, identity.deviceIdLength.value_or(static_cast<std::uint16_t>(whole)));
    std::copy_n(text.begin(), whole - kLengthPrefix, reply.begin() + kLengthPrefix);
    return reply;
}

Bytes functionDescriptors()
{
    Bytes rest;
    append(rest, FUNCTIONFS_HAS_FS_DESC | FUNCTIONFS_HAS_HS_DESC, 4);
    append(rest, kDescriptors, 4);
    append(rest, kDescriptors, 4);
    appendInterface(rest, kFullSpeedPacket);
    appendInterface(rest, kBusPacket);
    return headed(FUNCTIONFS_DESCRIPTORS_MAGIC_V2, rest);
}

Bytes functionStrings()
{
    Bytes rest;
    append(rest, 0, 4); // texts
    append(rest, 0, 4); // languages
    return headed(FUNCTIONFS_STRINGS_MAGIC, rest);
}

} // namespace vymprinter
