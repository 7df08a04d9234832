// SPDX-License-Identifier: MIT
#include "DevConn/UsbPortName.h"

namespace usbPortName {

namespace {

constexpr std::string_view kScheme = "usb://";
constexpr std::string_view kSerialKey = "serial=";
// Slashes and brackets are escaped in a product's name; a vendor's name keeps them.
constexpr std::string_view kEscapedInProducts = "/()";

bool isLegalInUrls(char c)
{
    constexpr std::string_view kMarks = "-_.!~*'();/?:@&=+$,";
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
        || kMarks.find(c) != std::string_view::npos;
}

} // namespace

std::string bounded(std::string_view text)
{
    return std::string(text.substr(0, text.find('\0')).substr(0, kLongestText));
}

std::string percentEscaped(std::string_view text, std::string_view alsoEscaped)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : text) {
        if (isLegalInUrls(c) && alsoEscaped.find(c) == std::string_view::npos) {
            escaped += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        escaped += '%';
        escaped += kDigits[byte >> 4];
        escaped += kDigits[byte & 0xF];
    }
    return escaped;
}

std::string make(std::string_view vendor, std::string_view product, std::string_view serial)
{
    std::string port(kScheme);
    port += percentEscaped(vendor, {});
    port += '/';
    port += percentEscaped(product, kEscapedInProducts);
    port += '?';
    port += kSerialKey;
    port += serial;
    return port;
}

bool serialOf(std::string_view port, std::string& serial)
{
    constexpr auto npos = std::string_view::npos;
    const auto scheme = port.find(kScheme);
    if (scheme == npos)
        return false;
    // A vendor has at least one character, which may be any.
    const auto slash = port.find('/', scheme + kScheme.size() + 1);
    if (slash == npos)
        return false;
    if (port.substr(slash + 1, kLongestText).find('?') == npos)
        return false;
    const auto key = port.find(kSerialKey);
    if (key == npos)
        return false;
    serial = port.substr(key + kSerialKey.size(), kLongestText);
    return true;
}

} // namespace usbPortName
