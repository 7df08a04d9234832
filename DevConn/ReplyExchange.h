// Sending one packet and collecting its framed reply within the time budget: the same for every
// transport. A transport says how bytes are read and written, and whether a reply is awaited.
//
// A reply begins with an 8-byte header whose bytes 4 to 7 give the body's length, big-endian. What
// a peer announces decides nothing: a body is kept as far as the receive packet size allows, and
// the rest is read and dropped, so that the next reply begins where it should.
//
// Owns:    nothing; the reply block goes to the caller, to be freed with FreeMem.
// Threads: the caller's; runs under the transport's lock.
#pragma once
#include <cstdint>

// What a transport supplies. Reads and writes are single attempts: true with fewer bytes than
// asked, or none, when the time ran out; false on an error of the link.
class PacketStream {
public:
    virtual bool WritePort(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                           unsigned long timeoutMs) = 0;
    // Writes on for as long as some of the packet leaves within each time-out, where a transport
    // can see that; otherwise a single attempt as well.
    virtual bool WritePacket(const unsigned char* buffer, unsigned long length, unsigned long* sent,
                             unsigned long timeoutMs)
    {
        return WritePort(buffer, length, sent, timeoutMs);
    }
    virtual bool ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                          unsigned long timeoutMs) = 0;
    // The peer has closed its side: empty reads come back at once and will not change.
    [[nodiscard]] virtual bool peerClosed() const = 0;
    // Before each attempt to read a header: is one to be read for this packet at all? A transport
    // that says no has paced the sender by itself.
    [[nodiscard]] virtual bool readsReply(const unsigned char* /*packet*/, unsigned long /*length*/)
    {
        return true;
    }
    // After a read that found nothing: is a reply to this packet worth waiting for?
    [[nodiscard]] virtual bool awaitsReply(const unsigned char* packet,
                                           unsigned long length) const = 0;

protected:
    PacketStream() = default;
    ~PacketStream() = default;
    PacketStream(const PacketStream&) = default;
    PacketStream& operator=(const PacketStream&) = default;
};

// Something to do while a packet is on its way and its reply is awaited, such as reading the next
// piece of a file. Short: the reply waits in the meantime.
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
    unsigned long leastWriteMs; // a write may take this long however short the time-out is
    unsigned long packetSize; // the largest reply that is kept, header included
    IdleWork* idleWork = nullptr; // done once, behind the write; null: nothing
};

struct ReplyBlock {
    unsigned char* bytes = nullptr; // from AllocMem; null: no reply came
    unsigned long length = 0; // header included
};

// Sends the packet (null, and length 0: only receives) and waits for its reply. No reply within the
// budget is a success without a block, a reply cut short by it is given as it is. Otherwise
// kSendFailed, kReceiveFailed or kOutOfMemory, and no block.
long exchangePacket(PacketStream& stream, const ExchangeLimits& limits, const unsigned char* packet,
                    unsigned long length, ReplyBlock& reply);
