// SPDX-License-Identifier: MIT
// A printer on the bus, for tests.
//
// Threads: any.
#pragma once
#include "Tools/vymprinter/UsbIdentity.h"

namespace vymprinter {

inline UsbIdentity identity()
{
    UsbIdentity made;
    made.maker = "Acme";
    made.productName = "P1";
    return made;
}

} // namespace vymprinter
