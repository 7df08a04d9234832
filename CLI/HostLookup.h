// SPDX-License-Identifier: MIT
// Looks up the IPv4 address of a host name on a thread of its own: a name server may take many
// seconds, and a signal or the deadline ends the wait at once.
//
// Threads: the command's.
#pragma once
#include "CLI/Commands.h"

struct HostLookup {
    std::string address; // empty if the name is unknown
    std::string problem; // why it is unknown
    StopCause stop = StopCause::none; // other than none: the result is unknown
};

HostLookup lookUpHost(Workplace& place, const std::string& name);
