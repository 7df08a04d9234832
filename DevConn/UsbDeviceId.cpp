// SPDX-License-Identifier: MIT
#include "DevConn/UsbDeviceId.h"

#include "DevConn/DeviceId.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace usbDeviceId {

namespace {

constexpr int kOpenAttempts = 5; // about the time in which a print queue releases it
constexpr unsigned long kBusyPauseMs = 1000;
constexpr std::uint8_t kFromInterface = 0xA1; // class request, device to host, interface
constexpr std::uint8_t kGetDeviceId = 0;
constexpr unsigned long kLongestDeviceId = 4096;
constexpr unsigned long kSearchSize = 256; // enough for the names; the whole ID is requested later
constexpr unsigned long kSearchMs = 500; // one mute device must not hold up the list
constexpr std::size_t kPrefix = 2; // the announced length

using Open = UsbStatus (UsbInterface::*)(std::unique_ptr<UsbConnection>&);

UsbStatus openBy(Open open, UsbInterface& found, std::unique_ptr<UsbConnection>& connection)
{
    for (int attempt = 1;; ++attempt) {
        const auto status = (found.*open)(connection);
        if (status == UsbStatus::ok && connection == nullptr)
            return UsbStatus::failed;
        if (status != UsbStatus::busy || attempt == kOpenAttempts)
            return status;
        pauseMilliseconds(kBusyPauseMs);
    }
}

// The text after the prefix, up to the end of the transfer.
using SearchText = std::array<char, kSearchSize + 1>;

bool readText(UsbInterface& found, SearchText& text)
{
    std::unique_ptr<UsbConnection> connection;
    if (openBy(&UsbInterface::openToIdentify, found, connection) != UsbStatus::ok)
        return false;
    std::array<unsigned char, kSearchSize> reply{};
    unsigned long size = reply.size();
    if (request(*connection, reply.data(), &size, kSearchMs) != UsbStatus::ok)
        return false;
    text.fill('\0');
    if (size > kPrefix)
        std::memcpy(text.data(), reply.data() + kPrefix, size - kPrefix);
    return true;
}

std::string valueOrNothing(const char* value)
{
    return value != nullptr ? value : "";
}

} // namespace

UsbStatus open(UsbInterface& found, std::unique_ptr<UsbConnection>& connection)
{
    return openBy(&UsbInterface::open, found, connection);
}

UsbStatus request(UsbConnection& connection, unsigned char* buffer, unsigned long* size,
                  unsigned long timeoutMs)
{
    std::uint8_t configuration = 0;
    std::uint8_t number = 0;
    std::uint8_t alternate = 0;
    if (!connection.configurationValue(configuration) || !connection.interfaceNumber(number)
        || !connection.alternateSetting(alternate))
        return UsbStatus::failed;
    *size = std::min(*size, kLongestDeviceId);
    const UsbControlRequest getDeviceId{kFromInterface,
                                        kGetDeviceId,
                                        static_cast<std::uint16_t>(configuration - 1),
                                        static_cast<std::uint16_t>(number << 8 | alternate),
                                        static_cast<std::uint16_t>(*size),
                                        timeoutMs,
                                        timeoutMs};
    std::uint32_t transferred = 0;
    const auto status = connection.controlRequest(getDeviceId, buffer, transferred);
    if (status != UsbStatus::ok)
        return status;
    *size = std::min<unsigned long>(transferred, *size);
    if (*size >= kPrefix) {
        const auto announced = static_cast<std::uint16_t>(buffer[0] << 8 | buffer[1]);
        std::memcpy(buffer, &announced, sizeof announced);
    }
    return UsbStatus::ok;
}

bool readModel(UsbInterface& found, std::string& model)
{
    model.clear();
    SearchText text;
    if (!readText(found, text))
        return false;
    model = valueOrNothing(deviceId::findModelKey(text.data()));
    return true;
}

bool readVendorAndProduct(UsbInterface& found, std::string& vendor, std::string& product)
{
    vendor.clear();
    product.clear();
    SearchText text;
    if (!readText(found, text))
        return false;
    auto copy = text;
    vendor = valueOrNothing(deviceId::findMfgKey(text.data()));
    // Starts two characters too late, so a device ID that begins with its model has no product.
    // This must stay: queues store port strings that were made this way.
    product = valueOrNothing(deviceId::findModelKey(copy.data() + 2));
    return true;
}

} // namespace usbDeviceId
