// SPDX-License-Identifier: MIT
// The network transport: one IPv4 stream to the printer. Serves every port string without "usb".
// Its only knowledge of packets is that file data need not be answered.
//
// Owns:      the socket.
// Threads:   as DevConnBase; blocking calls hold the lock, and each of them is bounded.
// Invariant: connected means an open socket; a failed Connect leaves no socket.
#pragma once
#include "DevConn/DevConnBase.h"

struct sockaddr_in;

class DevConnTCP : public DevConnBase, public PacketStream {
public:
    DevConnTCP(); // ignores SIGPIPE from now on: a closed peer is only an error
    ~DevConnTCP() override;
    DevConnTCP(const DevConnTCP&) = delete;
    DevConnTCP& operator=(const DevConnTCP&) = delete;

    // queue null: port is a dotted IPv4 address; else port is a port string with "lpd://" in it.
    long Connect(const char* queue, const char* port, unsigned short tcpPort) override;
    long SendRecvData(unsigned char* send, unsigned long sendLength, unsigned char** reply,
                      unsigned long* replyLength) override;
    long GetModelName(char** model, unsigned long* length) override; // no device ID here
    long SetTimeout(unsigned long milliseconds) override;
    // Returns kNetworkClosed on success, which its callers expect. Closes in a way that lets the
    // printer keep unread bytes: after sending firmware, waits up to the time-out for its end.
    long Disconnect() override;
    LinkState LookAtLink() override;

    [[nodiscard]] ConnectProblem connectProblem(int& error) override;

    bool WritePort(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                   unsigned long timeoutMs) override;
    bool WritePacket(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                     unsigned long timeoutMs) override;
    bool ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                  unsigned long timeoutMs) override;
    [[nodiscard]] bool peerClosed() const override { return m_peerClosed; }
    [[nodiscard]] bool awaitsReply(const unsigned char* packet,
                                   unsigned long length) const override;

    // The address in a port string: "lpd://", host, an optional colon and port (never used), a
    // slash. Resolves a host that is not a dotted address.
    static bool GetIpFromPort(const char* port, sockaddr_in* address);
    static bool ResolveIpAddr(const char* port, sockaddr_in* address);
    // An entry point without an implementation: always false.
    static bool GetIpFromReg(const char* first, const char* second, const char* third,
                             sockaddr_in* address);

private:
    bool write(const unsigned char* buffer, unsigned long length, unsigned long& sent,
               unsigned long timeoutMs, std::uint64_t last);
    bool receive(unsigned char* buffer, unsigned long length, unsigned long* received);
    bool openSocket(const sockaddr_in& address);
    void closeSocket();
    [[nodiscard]] unsigned long unsentBytes() const;
    void takeLeave() VYM_REQUIRES(m_lock);

    bool m_connecting = false;
    bool m_isUnknown = false; // the host of the last Connect
    int m_connectError = 0; // errno of the last Connect that found no connection
    int m_socket = -1;
    bool m_peerClosed = false;
    bool m_moreIsLikely = false; // the last read got all requested bytes at once
    bool m_carriedFirmware = false;
    bool m_replyIsDue = false; // the last packet got none
};
