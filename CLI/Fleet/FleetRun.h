// SPDX-License-Identifier: MIT
// Runs the processes of a fleet's printers until each has ended: so many at a time, with every
// line of their output handed on. A stop request lets running printers end as they would alone.
//
// Owns:      the processes while it runs.
// Threads:   the caller's; it waits for all processes at once.
// Invariant: one end for each member. A process without a result of its own counts as failed.
#pragma once
#include "CLI/Fleet/FleetSchedule.h"
#include "CLI/Fleet/MemberEnd.h"
#include "CLI/Session.h"

#include <functional>
#include <vector>

// The process of one printer.
struct MemberCommand {
    std::string program; // its file
    std::vector<std::string> words; // its arguments, its name first
    std::string variable; // of its environment: NAME=VALUE
};

// Receives what happens to each printer that starts, on the thread of the run: its start, its
// lines, its end. Indexes are below the orders' count.
class FleetObserver {
public:
    virtual ~FleetObserver() = default;
    virtual void started(std::size_t index) = 0;
    virtual void line(std::size_t index, const std::string& line) = 0; // not of a result
    virtual void ended(std::size_t index, const std::string& line, const MemberEnd& end) = 0;
    virtual void waited() = 0; // about once a second
    virtual void stopping(Wake cause) = 0; // Wake::signal, each time, or Wake::deadline

protected:
    FleetObserver() = default;
    FleetObserver(const FleetObserver&) = default;
    FleetObserver& operator=(const FleetObserver&) = default;
};

struct FleetOrders {
    std::size_t count = 0;
    FleetLimits limits;
    std::function<MemberCommand(std::size_t index)> commandOf; // called when it starts
    // The result line for a process that ended without one, and records it.
    std::function<std::string(std::size_t index, const std::string& how, bool ran)> withoutResult;
};

struct FleetEnds {
    std::vector<MemberEnd> members;
    Wake stop = Wake::tick; // Wake::signal or Wake::deadline if that stopped the call
    bool isCanaryBad = false;
    bool hadTooManyFailures = false;
};

// The functions of the orders must not be empty, and at least one process may run at a time.
FleetEnds runFleet(const FleetOrders& orders, Session& session, FleetObserver& observer);
