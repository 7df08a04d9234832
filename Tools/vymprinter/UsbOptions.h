// SPDX-License-Identifier: MIT
// The command line's options for printers on the USB bus.
//
// Threads:   any.
// Does not look for controllers: a free one is chosen when the printer is plugged in.
#pragma once
#include "Tools/vymprinter/UsbIdentity.h"

namespace CLI {
class App;
}

namespace vymprinter {

struct UsbOptions {
    std::vector<std::string> controllers; // one printer each; empty: no USB
    UsbIdentity identity;
};

// The options write into `usb`, which outlives the parsing.
void addUsbOptions(CLI::App& app, UsbOptions& usb);
// Sets defaults that depend on other options. Throws CLI::ValidationError.
void completeUsbOptions(UsbOptions& usb, std::uint32_t count, const std::string& model);
// The identity of the printer with that number, from 0; each has its own serial number.
[[nodiscard]] UsbIdentity identityOf(const UsbOptions& usb, std::size_t number);

} // namespace vymprinter
