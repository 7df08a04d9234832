// What happens on connections, for a program that wants to show it or to say why one failed: each
// attempt to connect, each packet that leaves and each that arrives.
//
// Owns:    nothing; bytes are the caller's for the length of a call.
// Threads: called on the thread that uses the connection, without a lock of the manager's. Must not
//          throw.
#pragma once
#include <cstdint>
#include <span>

enum class ConnectProblem : std::uint8_t {
    none,
    unknownHost, // the name has no IPv4 address
    refused, // somebody is there and takes no connection on this port
    timedOut, // nobody answered in the time of a connection
    noRoute, // this computer knows no way to the address
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

// The process's, or null; it stays the caller's until it is taken away, after the last connection.
void setLinkTrace(LinkTrace* trace);
LinkTrace* linkTrace();

ConnectProblem connectProblemOf(int error); // of errno
