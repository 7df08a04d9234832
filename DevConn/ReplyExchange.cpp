// SPDX-License-Identifier: MIT
#include "DevConn/ReplyExchange.h"

#include "DevConn/ConnResult.h"
#include "VYM/vymMac.h"
#include "VYM/vymPackets.h"
#include "VYM/vymUtil.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>
#include <memory>

namespace {

constexpr unsigned long kReadMs = 10; // one attempt; also the wait after the budget is used up
constexpr unsigned long kShortReply = 64; // bytes, header included; only files have longer replies

using packets::kHeaderSize;

using Header = std::array<unsigned char, kHeaderSize>;
using Block = std::unique_ptr<unsigned char, decltype(&FreeMem)>;

Block allocate(unsigned long size)
{
    return {static_cast<unsigned char*>(AllocMem(size)), &FreeMem};
}

enum class HeaderRead { complete, none, failed };

HeaderRead readHeader(PacketStream& stream, const unsigned char* packet, unsigned long length,
                      std::uint64_t deadline, Header& header)
{
    for (;;) {
        if (!stream.readsReply(packet, length))
            return HeaderRead::none;
        unsigned long received = 0;
        if (!stream.ReadPort(header.data(), kHeaderSize, &received, kReadMs))
            return HeaderRead::failed;
        if (received == kHeaderSize)
            return HeaderRead::complete;
        if (received != 0)
            return HeaderRead::failed;
        if (stream.peerClosed() || !stream.awaitsReply(packet, length)
            || tickMilliseconds() >= deadline)
            return HeaderRead::none;
    }
}

// Reads up to length bytes until the deadline; keeps the first of them as far as kept has room, and
// drops the others.
bool readBody(PacketStream& stream, std::uint64_t length, std::uint64_t deadline,
              unsigned char* kept, unsigned long room, unsigned long& got)
{
    assert(kept != nullptr);
    got = 0;
    unsigned char dropped[4096];
    for (std::uint64_t seen = 0; seen < length;) {
        const bool full = got == room;
        const auto wanted =
            std::min<std::uint64_t>(length - seen, full ? sizeof dropped : room - got);
        unsigned long received = 0;
        if (!stream.ReadPort(full ? dropped : kept + got, wanted, &received, kReadMs))
            return false;
        seen += received;
        got += full ? 0 : received;
        if (tickMilliseconds() >= deadline || (received == 0 && stream.peerClosed()))
            break;
    }
    return true;
}

// spare: for a short reply where there is no other memory for it; may be null.
long readReply(PacketStream& stream, const Header& header, unsigned long packetSize,
               std::uint64_t deadline, Block spare, ReplyBlock& reply)
{
    const auto body = packets::bodyLengthOf(header);
    const auto most = std::max<unsigned long>(packetSize, kHeaderSize) - kHeaderSize;
    const auto room = std::min<unsigned long>(body, most);
    auto block = allocate(kHeaderSize + room);
    if (block == nullptr && kHeaderSize + room <= kShortReply)
        block = std::move(spare);
    if (block == nullptr)
        return conn::kOutOfMemory;
    std::memcpy(block.get(), header.data(), kHeaderSize);
    unsigned long got = 0;
    if (!readBody(stream, body, deadline, block.get() + kHeaderSize, room, got))
        return conn::kReceiveFailed;
    reply = {block.release(), kHeaderSize + got};
    return conn::kSuccess;
}

} // namespace

long exchangePacket(PacketStream& stream, const ExchangeLimits& limits, const unsigned char* packet,
                    unsigned long length, ReplyBlock& reply)
{
    assert(packet != nullptr || length == 0);
    reply = {};
    // A printer whose reply to "enter" cannot be stored stays in download mode: the program does
    // not know that it was entered. So the memory for that reply comes before the request.
    auto spare = allocate(kShortReply);
    if (spare == nullptr && packets::isOf(packets::kEnterDownload, {packet, length}))
        return conn::kOutOfMemory;
    const auto start = tickMilliseconds();
    if (packet != nullptr) {
        unsigned long sent = 0;
        const auto writeMs = std::max(limits.timeoutMs, limits.leastWriteMs);
        if (!stream.WritePacket(packet, length, &sent, writeMs) || sent < length)
            return conn::kSendFailed;
    }
    const auto now = tickMilliseconds();
    const auto elapsed = now - start;
    const auto budget = elapsed < limits.timeoutMs ? limits.timeoutMs - elapsed : kReadMs;
    if (limits.idleWork != nullptr)
        limits.idleWork->run();
    Header header{};
    switch (readHeader(stream, packet, length, now + budget, header)) {
    case HeaderRead::failed:
        return conn::kReceiveFailed;
    case HeaderRead::none:
        return conn::kSuccess;
    case HeaderRead::complete:
        break;
    }
    return readReply(stream, header, limits.packetSize, now + budget, std::move(spare), reply);
}
