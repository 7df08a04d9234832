// USB by libusb-1.0, on Linux: descriptors from the system's records, interfaces claimed from their
// kernel driver for as long as a connection lasts and given back to it on every way out.
//
// Owns:    nothing. Every list of interfaces has its own view of the bus, kept by its interfaces
//          and by what was opened from them: what is plugged later is in the next list.
// Threads: as the seam says. Connections of one list share their view's events: any of them may
//          take another one's event off the bus, but an end is told by its own wait only.
// Does not cut a transfer that the kernel still has: buffers that the bus fills are its own.
#pragma once
#include "Platform/UsbHost.h"

class LibusbHost final : public UsbHost {
public:
    LibusbHost() = default;
    bool interfaces(InterfaceList& found) override;
};
