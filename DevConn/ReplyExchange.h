// SPDX-License-Identifier: MIT
// Sends one packet and collects its framed reply within the time budget, in the same way for every
// transport. A transport says how bytes are read and written, and whether a reply is awaited.
//
// A reply begins with an 8-byte header whose bytes 4 to 7 give the body's length, big-endian. The
// receive packet size, not the announced length, limits the kept part of a body; the rest is read
// and dropped, so that the next reply begins at the right place.
//
// Owns:    nothing; the caller owns the reply block and frees it with FreeMem.
// Threads: the caller's; runs under the transport's lock.
#pragma once
#include <cstdint>

// A transport's part. Reads and writes are single attempts: true with fewer bytes than requested,
// or zero, if the time ran out; false on an error of the link.
class PacketStream {
public:
    virtual bool WritePort(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                           unsigned long timeoutMs) = 0;
    // Goes on writing as long as some of the packet leaves within each time-out, if a transport can
    // see that; otherwise a single attempt as well.
    virtual bool WritePacket(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                             unsigned long timeoutMs)
    {
        return WritePort(buffer, length, sent, timeoutMs);
    }
    virtual bool ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                          unsigned long timeoutMs) = 0;
    // The peer has closed its side: reads return no bytes at once, from now on.
    [[nodiscard]] virtual bool peerClosed() const = 0;
    // Called before each attempt to read a header: whether to read a reply to this packet at all. A
    // transport that returns false has paced the sender itself.
    [[nodiscard]] virtual bool readsReply(const unsigned char* /*packet*/, unsigned long /*length*/)
    {
        return true;
    }
    // Called after a read without bytes: whether to wait for a reply to this packet.
    [[nodiscard]] virtual bool awaitsReply(const unsigned char* packet,
                                           unsigned long length) const = 0;

protected:
    PacketStream() = default;
    ~PacketStream() = default;
    PacketStream(const PacketStream&) = default;
    PacketStream& operator=(const PacketStream&) = default;
};

// Work to do during the wait for a reply, such as reading the next piece of a file. Must be short:
// the reply waits meanwhile.
class IdleWork {
public:
    virtual void run() = 0;

protected:
    IdleWork() = default;
    ~IdleWork() = default;
    IdleWork(const IdleWork&) = default;
    IdleWork& operator=(const IdleWork&) = default;
};

struct ExchangeLimits {
    unsigned long timeoutMs; // for write and reply together; 0: none was set
    unsigned long leastWriteMs; // a write may take this long even with a shorter time-out
    unsigned long packetSize; // the largest reply that is kept, header included
    IdleWork* idleWork = nullptr; // done once, after the write; may be null
};

struct ReplyBlock {
    unsigned char* bytes = nullptr; // from AllocMem; null: no reply arrived
    unsigned long length = 0; // header included
};

// Sends the packet (null and length 0: only receives) and waits for its reply. No reply within the
// budget is a success without a block; a reply that the budget cuts short is returned as far as it
// arrived. On failure returns kSendFailed, kReceiveFailed or kOutOfMemory, without a block.
long exchangePacket(PacketStream& stream, const ExchangeLimits& limits, const unsigned char* packet,
                    unsigned long length, ReplyBlock& reply);
