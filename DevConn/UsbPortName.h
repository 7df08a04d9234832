// SPDX-License-Identifier: MIT
// The port string of a USB printer: "usb://" vendor "/" product "?serial=" serial. Made when the
// bus is listed, and parsed when the printer is opened.
//
// Threads: any; plain functions of their arguments. May throw std::bad_alloc.
#pragma once
#include <string>
#include <string_view>

namespace usbPortName {

// The longest text from a device or a port string; longer ones are cut.
constexpr std::size_t kLongestText = 255;

// A device's text up to its first NUL, cut to kLongestText.
std::string bounded(std::string_view text);
// Escapes every byte that a URL may not contain (RFC 2396), and those of alsoEscaped.
std::string percentEscaped(std::string_view text, std::string_view alsoEscaped);
// The serial number is not escaped: it is compared with the device's own text.
std::string make(std::string_view vendor, std::string_view product, std::string_view serial);
// The serial number after "serial="; false for a text that does not have a port string's form.
bool serialOf(std::string_view port, std::string& serial);

} // namespace usbPortName
