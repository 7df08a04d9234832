// SPDX-License-Identifier: MIT
// The queues of a CUPS print server: the one named by CUPS_SERVER or by the system's client
// settings, otherwise the local one. Sends one request over a connection of its own; never prompts
// for a password, never searches the network for printers, leaves out classes of printers.
//
// Owns:    nothing between two calls.
// Threads: one at a time. Each request is made in a process of its own, so that neither a server
// nor
//          the print system's library can do harm here.
// Bounds:  whatever the server does, an answer takes no longer than the limit and is no larger than
//          IppAnswer allows.
#pragma once
#include "Platform/PrintServer.h"

#include <chrono>

class CupsPrintServer : public PrintServer {
public:
    // A local server answers within milliseconds, with 500 queues within tens of milliseconds.
    static constexpr std::chrono::milliseconds kAnswerLimit{3000};

    explicit CupsPrintServer(std::chrono::milliseconds limit = kAnswerLimit) : m_limit(limit) { }
    bool queues(std::vector<PrintQueue>& found, std::string& reason) override;

private:
    std::chrono::milliseconds m_limit;
};
