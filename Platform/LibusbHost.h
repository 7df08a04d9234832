// SPDX-License-Identifier: MIT
// USB with libusb-1.0, on Linux. Takes descriptors from the system's records; claims interfaces
// from their kernel driver during a connection, and gives them back on every way out.
//
// Owns:    nothing. Every list of interfaces has its own view of the bus, kept alive by its
//          interfaces and their connections; a device that is plugged in later is in the next.
// Threads: as the seam says. Connections of one list share their view's events: any of them may
//          handle another one's event, but only a connection's own wait reports its end.
// Does not cut a transfer that the kernel still has; the host owns the buffers that the bus fills.
#pragma once
#include "Platform/UsbHost.h"

class LibusbHost final : public UsbHost {
public:
    LibusbHost() = default;
    bool interfaces(InterfaceList& found) override;
};
