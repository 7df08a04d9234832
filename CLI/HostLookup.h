// The IPv4 address of a host's name, looked up on a thread of its own: a name server may take many
// seconds, and a signal or the deadline ends the wait at once.
//
// Threads: called on the command's.
#pragma once
#include "CLI/Commands.h"

struct HostLookup {
    std::string address; // empty where the name is unknown
    std::string problem; // why it is
    StopCause stop = StopCause::none; // other than none: it is not known whether there is one
};

HostLookup lookUpHost(Workplace& place, const std::string& name);
