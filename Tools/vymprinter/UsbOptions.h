// What the command line asks for a printer on the USB bus.
//
// Threads:   any.
// Does not look for controllers: which of them are free is known when the printer is plugged in.
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
// Fills in what follows from other options. Throws CLI::ValidationError.
void completeUsbOptions(UsbOptions& usb, std::uint32_t count, const std::string& model);
// The identity of the printer with that number, from 0: serial numbers differ.
[[nodiscard]] UsbIdentity identityOf(const UsbOptions& usb, std::size_t number);

} // namespace vymprinter
