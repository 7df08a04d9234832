// SPDX-License-Identifier: MIT
// A connection to one printer over any transport: the manager's interface, and the common parts of
// all transports (lock, time-out, receive packet size, blocks given to callers).
//
// Owns:      every block given to a caller until it is returned with DisposeData; blocks that are
//            not returned are freed with the object.
// Threads:   any, one operation at a time: each holds the object's lock throughout.
// Invariant: a block in the memory list came from AllocMem and has not been freed.
#pragma once
#include "DevConn/LinkTrace.h"
#include "DevConn/ReplyExchange.h"
#include "VYM/vymLock.h"

#include <vector>

// A transport's knowledge of its link, without waiting.
struct LinkState {
    unsigned long unsent =
        0; // bytes that have not reached the printer: it cannot have answered them
    bool arrived = false; // bytes from the printer, or the link's end, are there to be received
    bool closed = false; // the printer has ended its side, and everything that it sent was received
    unsigned long held = 0; // of the unsent bytes, those for which the printer has no room yet
};

class DevConnBase {
public:
    virtual ~DevConnBase();
    DevConnBase(const DevConnBase&) = delete;
    DevConnBase& operator=(const DevConnBase&) = delete;

    // queue: the print queue's identifier or null; port: the port string.
    virtual long Connect(const char* queue, const char* port, unsigned short tcpPort) = 0;
    // Sends a packet (null and length 0: only receives) and collects the reply. Success without a
    // reply leaves *reply null; return a reply with DisposeData.
    virtual long SendRecvData(unsigned char* send, unsigned long sendLength, unsigned char** reply,
                              unsigned long* replyLength) = 0;
    virtual long GetModelName(char** model, unsigned long* length) = 0;
    virtual long SetTimeout(unsigned long milliseconds) = 0;
    virtual long Disconnect() = 0;
    // The initial values mean that the transport knows nothing.
    virtual LinkState LookAtLink() { return {}; }
    // Why the last Connect failed, and errno of it where there was one.
    [[nodiscard]] virtual ConnectProblem connectProblem(int& error);

    long SetRecvPacketSize(unsigned long size); // any size; a reply is kept up to it
    // Sets the work for the wait in every exchange from now on; null: no work. The caller owns it
    // and keeps it during its use.
    long SetIdleWork(IdleWork* work);
    long DisposeData(void* block); // kForeignBlock for a block that is not ours
    // Call with the lock held; false for null or out of memory.
    bool addMemList(void* block) VYM_REQUIRES(m_lock);
    static char* FindModelKey(char* deviceId);

protected:
    DevConnBase() = default;

    // SendRecvData for a transport that is a PacketStream.
    long exchange(PacketStream& stream, unsigned long leastWriteMs, unsigned char* send,
                  unsigned long sendLength, unsigned char** reply, unsigned long* replyLength)
        VYM_REQUIRES(m_lock);
    long storeTimeout(unsigned long milliseconds); // SetTimeout, the same for every transport

    CRITSECT m_lock;
    unsigned long m_timeout VYM_GUARDED_BY(m_lock) = 0; // milliseconds; 0: none was set
    unsigned long m_recvPacketSize VYM_GUARDED_BY(m_lock) = 4096; // bytes, header included
    bool m_connected VYM_GUARDED_BY(m_lock) = false;

private:
    // Makes room for one more block; false for out of memory.
    bool reserveMemList() VYM_REQUIRES(m_lock);

    IdleWork* m_idleWork VYM_GUARDED_BY(m_lock) = nullptr;
    std::vector<void*> m_memList VYM_GUARDED_BY(m_lock);
};
