// SPDX-License-Identifier: MIT
// The only network of a simulated process; Sockets.cpp replaces the system's calls.
#pragma once
#include "tests/sim/Link.h"

namespace sim {

// The link for the next socket; null: no link. The caller owns it.
void plugInLink(Link* link);
bool socketIsOpen(); // the product has a socket that it has not closed

} // namespace sim
