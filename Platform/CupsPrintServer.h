// The queues of a CUPS print server: the one that CUPS_SERVER or the system's client settings name,
// or the local one. One request over a connection of its own; never asks for a password, never
// looks for printers on the network, leaves classes of printers out.
//
// Owns:    nothing between two calls.
// Threads: one at a time. While it asks, a thread of its own watches the time.
// Bounds:  an answer takes no longer than the limit and no more than IppAnswer allows, whatever the
//          server does. Outside the limit: looking up the name of a server on another machine
//          (the resolver's own), and opening a connection that is encrypted from its start.
#pragma once
#include "Platform/PrintServer.h"

#include <chrono>

class CupsPrintServer : public PrintServer {
public:
    // A local server answers within milliseconds, one with 500 queues within tens of them.
    static constexpr std::chrono::milliseconds kAnswerLimit{3000};

    explicit CupsPrintServer(std::chrono::milliseconds limit = kAnswerLimit) : m_limit(limit) { }
    bool queues(std::vector<PrintQueue>& found, std::string& reason) override;

private:
    std::chrono::milliseconds m_limit;
};
