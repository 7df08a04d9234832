// SPDX-License-Identifier: MIT
// Receives the events of connections, for a program that shows them or explains failures: each
// attempt to connect, each packet that leaves and each that arrives.
//
// Owns:    nothing; the caller owns the bytes and keeps them during a call.
// Threads: called on the thread that uses the connection, without the manager's lock. Must not
//          throw.
#pragma once
#include <cstdint>
#include <span>

enum class ConnectProblem : std::uint8_t {
    none,
    unknownHost, // the name has no IPv4 address
    refused, // the host exists but accepts no connection on this port
    timedOut, // no answer within the time for a connection
    noRoute, // this computer has no route to the address
    other,
};

class LinkTrace {
public:
    virtual ~LinkTrace() = default;
    // port: the port string or address; error: errno of the failure, or 0.
    virtual void connected(const char* port, unsigned short tcpPort, ConnectProblem problem,
                           int error) = 0;
    virtual void sent(std::span<const unsigned char> packet, long result) = 0;
    virtual void received(std::span<const unsigned char> reply) = 0;

protected:
    LinkTrace() = default;
    LinkTrace(const LinkTrace&) = default;
    LinkTrace& operator=(const LinkTrace&) = default;
};

// The process's trace, or null. The caller owns it, and removes it after the last connection.
void setLinkTrace(LinkTrace* trace);
LinkTrace* linkTrace();

ConnectProblem connectProblemOf(int error); // of errno
