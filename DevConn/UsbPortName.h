// The port string of a USB printer: "usb://" vendor "/" product "?serial=" serial, made when the
// bus is listed and read again when the printer is opened.
//
// Threads: any; plain functions of their arguments. May throw std::bad_alloc.
#pragma once
#include <string>
#include <string_view>

namespace usbPortName {

// The longest text that is taken from a device or a port string; longer ones are cut.
constexpr std::size_t kLongestText = 255;

// A text as a device gave it: up to its first NUL, and no longer than kLongestText.
std::string bounded(std::string_view text);
// Escapes every byte that no URL may hold (RFC 2396), and those of alsoEscaped.
std::string percentEscaped(std::string_view text, std::string_view alsoEscaped);
// The serial stays as it is: it is compared with the device's own text.
std::string make(std::string_view vendor, std::string_view product, std::string_view serial);
// The serial behind "serial="; false for a text that is not built like a port string.
bool serialOf(std::string_view port, std::string& serial);

} // namespace usbPortName
