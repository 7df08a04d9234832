// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/ReplyShape.h"

#include <algorithm>
#include <array>

namespace vymprinter {
namespace {

constexpr Millis kSplitGap{30}; // longer than the 10 ms that an updater waits for a header
constexpr Millis kBodyGap{3}; // shorter than that
constexpr Millis kFragmentGap{1};
constexpr std::size_t kFragments = 32; // keeps the longest reply well below a second
constexpr std::size_t kSmallestFragment = 3; // cuts through two- and four-byte fields
constexpr Millis kDripGap{100};
constexpr std::size_t kGarbageSize = 64;
constexpr std::uint16_t kWrongCode = 0x51FF; // no command has it
constexpr std::uint16_t kUnknownStatus = 0x7777;
constexpr std::uint32_t kLongestBody = 0xFFFFFFFF;
constexpr std::size_t kOversize = 64U << 10;
constexpr std::array kReplyChangers = {
    FaultKind::garbage,   FaultKind::wrongCode, FaultKind::shortReply, FaultKind::splitReply,
    FaultKind::splitBody, FaultKind::oversized, FaultKind::lengthLie,  FaultKind::emptyPacket,
};

Bytes garbage()
{
    Bytes bytes(kGarbageSize);
    std::uint32_t state = 0x2545F491; // any odd start; fixed, so that a failure can be repeated
    for (auto& byte : bytes) {
        state = state * 1664525U + 1013904223U; // a common linear congruential generator
        byte = static_cast<std::uint8_t>(state >> 24);
    }
    return bytes;
}

void announceBody(Bytes& reply, std::uint32_t length)
{
    put32(reply, 4, length);
}

Bytes spoilt(Bytes reply, const FaultSet& faults, std::uint32_t packetLimit)
{
    if (faults.has(FaultKind::garbage))
        return garbage();
    if (faults.has(FaultKind::wrongCode))
        put16(reply, 2, kWrongCode);
    if (faults.has(FaultKind::oversized)) {
        reply.resize(std::max(packetLimit, kFirstReplyLimit) + kOversize, 0xA5);
        announceBody(reply, static_cast<std::uint32_t>(reply.size() - kHeaderSize));
    }
    if (faults.has(FaultKind::lengthLie)) {
        reply.resize(kSimpleReplySize);
        announceBody(reply, kLongestBody);
    }
    if (faults.has(FaultKind::shortReply)) {
        reply.resize(kHeaderSize);
        announceBody(reply, 0);
    }
    return reply;
}

// Cuts the bytes into parts of `size`, the first due at `due`, each later one `gap` after the
// previous.
void cut(std::vector<Outgoing>& parts, ByteView bytes, std::size_t size, Millis due, Millis gap)
{
    for (std::size_t at = 0; at < bytes.size(); at += size, due += gap) {
        const auto piece = bytes.subspan(at, std::min(size, bytes.size() - at));
        parts.push_back({due, Bytes(piece.begin(), piece.end()), LinkEnd::none});
    }
}

} // namespace

std::vector<Outgoing> shapeReply(Bytes reply, const FaultSet& faults, Millis due,
                                 std::uint32_t packetLimit)
{
    const auto bytes = spoilt(std::move(reply), faults, packetLimit);
    const ByteView view = bytes;
    std::vector<Outgoing> parts;
    if (faults.has(FaultKind::emptyPacket))
        parts.push_back({due, {}, LinkEnd::none});
    if (faults.has(FaultKind::drip)) {
        cut(parts, view, 1, due, kDripGap);
    } else if (faults.has(FaultKind::splitReply)) {
        cut(parts, view.first(kHeaderSize / 2), bytes.size(), due, kSplitGap);
        cut(parts, view.subspan(kHeaderSize / 2), bytes.size(), due + kSplitGap, kSplitGap);
    } else if (faults.has(FaultKind::splitBody)) {
        const auto fragment = std::max(kSmallestFragment, bytes.size() / kFragments + 1);
        cut(parts, view.first(kHeaderSize), kHeaderSize, due, kBodyGap);
        cut(parts, view.subspan(kHeaderSize), fragment, due + kBodyGap, kFragmentGap);
    } else {
        parts.push_back({due, bytes, LinkEnd::none});
    }
    return parts;
}

bool changesReply(const FaultSet& faults)
{
    return std::any_of(kReplyChangers.begin(), kReplyChangers.end(),
                       [&](FaultKind kind) { return faults.has(kind); });
}

std::optional<std::uint16_t> forcedStatus(const FaultSet& faults)
{
    constexpr std::array<std::pair<FaultKind, std::uint16_t>, 5> kStatuses = {{
        {FaultKind::refuseBusy, status::kBusy},
        {FaultKind::refuseFax, status::kFax},
        {FaultKind::status0803, status::kRefused},
        {FaultKind::status0804, status::kChecksum},
        {FaultKind::statusUnknown, kUnknownStatus},
    }};
    for (const auto& [kind, value] : kStatuses)
        if (faults.has(kind))
            return value;
    return std::nullopt;
}

} // namespace vymprinter
