// SPDX-License-Identifier: MIT
// The facts known of the connection to the printer after a check or an update: why it failed, for
// the message to people.
//
// Owns:    its texts, by value.
// Threads: the command's.
#pragma once
#include "DevConn/LinkTrace.h"

#include <optional>
#include <string>

class PacketTrace;

struct LinkFacts {
    std::optional<ConnectProblem> connect; // of the last attempt to connect
    std::optional<bool> isAnswered; // the last packet; empty if none was sent
    bool notPermitted = false; // the printer is on USB, and this user may not open it
    std::string usedBy; // the programs that have the USB printer open, if it could not be opened
};

// port: the port string of the printer. Sends nothing to it.
LinkFacts linkFacts(const PacketTrace& trace, const std::string& port);
