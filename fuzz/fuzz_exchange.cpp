// SPDX-License-Identifier: MIT
// One exchange over a link that delivers a reply in parts, ends, stalls and fails as the input
// says. In every case the exchange ends in time, and its block holds the bytes that arrived.
#include "DevConn/ConnResult.h"
#include "DevConn/ReplyExchange.h"
#include "VYM/vymPackets.h"
#include "VYM/vymUtil.h"
#include "fuzz/Fuzz.h"
#include "tests/support/ScriptedTime.h"

#include <cstring>
#include <string>

namespace {

constexpr std::size_t kHeader = 8;
constexpr unsigned long kReadMs = 10; // the length of one read attempt

// Each read consumes one instruction: an event, then a number of bytes or milliseconds.
class FuzzedStream : public PacketStream {
public:
    FuzzedStream(Input& input, ScriptedTime& time) : m_input(input), m_time(time) { }

    bool WritePort(const unsigned char* packet, unsigned long length, unsigned long* sent,
                   unsigned long timeoutMs) override
    {
        static_cast<void>(packet);
        const auto what = m_input.byte();
        m_time.advance(std::min<unsigned long>(m_input.number(), timeoutMs));
        *sent = what % 8 == 1 ? length / 2 : length;
        return what % 8 != 2;
    }
    bool ReadPort(unsigned char* buffer, unsigned long length, unsigned long* received,
                  unsigned long timeoutMs) override
    {
        require(timeoutMs <= kReadMs, "one attempt to read is short");
        require(length > 0, "something is asked for");
        ++m_reads;
        *received = 0;
        const auto what = m_closed ? std::uint8_t{0} : m_input.byte();
        if (what % 16 == 15)
            return false;
        m_closed = m_closed || what % 16 == 14;
        if (what % 16 == 0 || m_closed) {
            m_time.advance(m_closed ? 0 : timeoutMs);
            return true;
        }
        const auto piece = m_input.text(std::min<unsigned long>(length, m_input.byte()));
        std::memcpy(buffer, piece.data(), piece.size());
        m_given += piece;
        *received = piece.size();
        m_time.advance(what % 16 == 1 || piece.empty() ? timeoutMs : 0);
        return true;
    }
    [[nodiscard]] bool peerClosed() const override { return m_closed; }
    [[nodiscard]] bool awaitsReply(const unsigned char* packet, unsigned long length) const override
    {
        return !packets::FilePacket(packet, length).isData();
    }
    [[nodiscard]] const std::string& given() const { return m_given; }
    [[nodiscard]] std::size_t reads() const { return m_reads; }

private:
    Input& m_input;
    ScriptedTime& m_time;
    std::string m_given;
    std::size_t m_reads = 0;
    bool m_closed = false;
};

void checkReply(long code, const ReplyBlock& reply, const std::string& given,
                unsigned long packetSize)
{
    require(code == conn::kSuccess || code == conn::kSendFailed || code == conn::kReceiveFailed
                || code == conn::kOutOfMemory,
            "a result of the exchange");
    require((reply.bytes == nullptr) == (reply.length == 0), "a block has a length");
    require(code == conn::kSuccess || reply.bytes == nullptr, "a failure has no block");
    if (reply.bytes == nullptr)
        return;
    require(reply.length >= kHeader, "a reply has a header");
    require(reply.length <= std::max(packetSize, kHeader), "a reply fits the packet size");
    require(reply.length <= given.size()
                && std::memcmp(reply.bytes, given.data(), reply.length) == 0,
            "a reply is what came");
    std::uint64_t announced = 0;
    for (std::size_t i = 4; i < kHeader; ++i)
        announced = announced << 8 | reply.bytes[i];
    require(given.size() <= kHeader + announced, "the next reply's bytes are not touched");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    ScriptedTime time;
    const ExchangeLimits limits{input.number(), input.byte(), input.number()};
    const std::string packet(input.text(input.byte()));
    const auto* bytes = reinterpret_cast<const unsigned char*>(packet.data());
    FuzzedStream stream(input, time);
    const auto start = tickMilliseconds();
    ReplyBlock reply;
    const auto code =
        exchangePacket(stream, limits, packet.empty() ? nullptr : bytes, packet.size(), reply);
    checkReply(code, reply, stream.given(), limits.packetSize);
    FreeMem(reply.bytes);
    const auto longest = std::max(limits.timeoutMs, limits.leastWriteMs) + 2 * kReadMs;
    require(tickMilliseconds() - start <= longest, "the exchange ends in time");
    require(stream.reads() <= size + longest / kReadMs + 2, "no spinning");
    return 0;
}
