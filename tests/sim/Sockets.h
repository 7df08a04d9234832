// The one network of a simulated process; Sockets.cpp stands in for the system's calls.
#pragma once
#include "tests/sim/Link.h"

namespace sim {

// The link that the next socket gets; null: none. It stays the caller's.
void plugInLink(Link* link);
bool socketIsOpen(); // the product has a socket that it has not closed

} // namespace sim
