// SPDX-License-Identifier: MIT
#include "VYM/vymPackets.h"

#include "VYM/vymUtil.h"

#include <cassert>

namespace packets {

namespace {

constexpr std::size_t kCodeAt = offsetof(TAG_SSTHEADER, m_code);
constexpr std::size_t kLengthAt = offsetof(TAG_SSTHEADER, m_length);
constexpr std::size_t kNameAt = offsetof(TAG_CMDSENDFILE, m_name);
constexpr std::size_t kKindAt = offsetof(TAG_CMDSENDFILE, m_kind);
constexpr std::size_t kStartAt = offsetof(TAG_CMDSENDFILE, m_start);
constexpr std::size_t kEndAt = offsetof(TAG_CMDSENDFILE, m_end);
constexpr std::size_t kSumAt = offsetof(TAG_CMDSENDFILE, m_checkSum);
constexpr std::size_t kDataLengthAt = offsetof(TAG_CMDSENDFILE, m_dataLength);

constexpr std::size_t kStatusAt = 10;
constexpr std::size_t kTotalAt = 12;
constexpr std::size_t kDoneAt = 16;
constexpr std::size_t kBlockOffsetAt = 12;
constexpr std::size_t kBlockTotalAt = 16;
constexpr std::size_t kBlockSumAt = 20;
constexpr std::size_t kBlockLengthAt = 24;
constexpr std::size_t kBlockDataAt = 28;

template <class Record> Record blank(std::uint16_t code, std::uint32_t following = 0)
{
    Record record{};
    setHeader(record.m_header, code,
              static_cast<std::uint32_t>(sizeof(Record) - sizeof(TAG_SSTHEADER)) + following);
    return record;
}

// The copy refuses a name that does not fit; the field then stays empty.
void setName(char (&field)[kNameSize], const char* name)
{
    strcpy_s(field, kNameSize, name);
}

} // namespace

std::uint16_t byteSum(std::span<const unsigned char> data)
{
    // Sums in 16 bits, so that vectorised code needs no wider lanes.
    std::uint16_t sum = 0;
    for (const auto byte : data)
        sum = static_cast<std::uint16_t>(sum + byte);
    return sum;
}

void setHeader(TAG_SSTHEADER& header, std::uint16_t code, std::uint32_t bodyLength)
{
    header.m_code.set(code);
    header.m_length.set(bodyLength);
}

TAG_CMDGETFILE getFile(const char* name)
{
    auto record = blank<TAG_CMDGETFILE>(kGetFile);
    setName(record.m_name, name);
    return record;
}

TAG_CMDENTERDOWNLOAD enterDownload(bool flag)
{
    auto record = blank<TAG_CMDENTERDOWNLOAD>(kEnterDownload);
    record.m_flag.set(flag ? 1 : 0);
    return record;
}

TAG_CMDEXITDOWNLOAD exitDownload()
{
    return blank<TAG_CMDEXITDOWNLOAD>(kExitDownload);
}

TAG_CMDQUERYUPDATESTATUS queryStatus(const char* name)
{
    auto record = blank<TAG_CMDQUERYUPDATESTATUS>(kQueryStatus);
    setName(record.m_name, name);
    return record;
}

TAG_CMDQUERYUPDATESTATUS_SP queryStatusShort()
{
    return blank<TAG_CMDQUERYUPDATESTATUS_SP>(kQueryStatus);
}

TAG_CMDSENDFILE sendFile(const char* name, const FilePiece& piece)
{
    // A last block carries the sum of its data or, without data, the sum of the whole file, which
    // the caller then passes as length.
    assert(!isLast(piece.kind) || piece.data == nullptr || piece.start <= piece.end);
    std::uint32_t length = piece.length;
    if (isLast(piece.kind))
        length = piece.data != nullptr && piece.start <= piece.end ? piece.end - piece.start : 0;
    std::uint16_t sum = 0;
    if (piece.data != nullptr)
        sum = piece.dataSum ? *piece.dataSum : byteSum({piece.data, length});
    else if (isLast(piece.kind))
        sum = static_cast<std::uint16_t>(piece.length);
    auto record = blank<TAG_CMDSENDFILE>(kSendFile, length);
    setName(record.m_name, name);
    record.m_kind.set(piece.kind);
    record.m_start.set(piece.start);
    record.m_end.set(piece.end);
    record.m_checkSum.set(sum);
    record.m_dataLength.set(length);
    return record;
}

std::uint32_t bodyLengthOf(std::span<const unsigned char, kHeaderSize> header)
{
    return readBigEndian32(&header[kLengthAt]);
}

bool FilePacket::isFile() const
{
    return isOf(kSendFile, m_packet) && has(kKindAt, 2);
}

bool FilePacket::showsProgress() const
{
    return isFile() && has(kEndAt, 4);
}

std::uint16_t FilePacket::kind() const
{
    return has(kKindAt, 2) ? readBigEndian16(&m_packet[kKindAt]) : std::uint16_t{0};
}

std::uint32_t FilePacket::start() const
{
    return has(kStartAt, 4) ? readBigEndian32(&m_packet[kStartAt]) : 0;
}

std::uint32_t FilePacket::end() const
{
    return has(kEndAt, 4) ? readBigEndian32(&m_packet[kEndAt]) : 0;
}

std::uint16_t FilePacket::sum() const
{
    return has(kSumAt, 2) ? readBigEndian16(&m_packet[kSumAt]) : std::uint16_t{0};
}

std::uint32_t FilePacket::dataLength() const
{
    return has(kDataLengthAt, 4) ? readBigEndian32(&m_packet[kDataLengthAt]) : 0;
}

std::span<const unsigned char> FilePacket::name() const
{
    return has(kNameAt, kNameSize) ? m_packet.subspan(kNameAt, kNameSize)
                                   : std::span<const unsigned char>();
}

std::span<const unsigned char> FilePacket::data() const
{
    return has(kFileHeadSize, 0) ? m_packet.subspan(kFileHeadSize)
                                 : std::span<const unsigned char>();
}

bool isOf(std::uint16_t code, std::span<const unsigned char> packet)
{
    return packet.size() >= kHeaderSize && readBigEndian16(&packet[kCodeAt]) == code;
}

bool isReplyTo(std::uint16_t code, std::span<const unsigned char> reply)
{
    return isOf(code, reply) && readBigEndian32(&reply[kLengthAt]) == reply.size() - kHeaderSize;
}

std::optional<std::uint16_t> statusOf(std::span<const unsigned char> reply)
{
    if (reply.size() < kStatusAt + 2)
        return std::nullopt;
    return readBigEndian16(&reply[kStatusAt]);
}

std::optional<Counts> countsOf(std::span<const unsigned char> reply)
{
    if (reply.size() < kDoneAt + 4)
        return std::nullopt;
    return Counts{readBigEndian32(&reply[kTotalAt]), readBigEndian32(&reply[kDoneAt])};
}

std::optional<FileBlock> fileBlockOf(std::span<const unsigned char> reply)
{
    if (reply.size() < kBlockDataAt)
        return std::nullopt;
    const auto length = readBigEndian32(&reply[kBlockLengthAt]);
    if (length > reply.size() - kBlockDataAt)
        return std::nullopt;
    return FileBlock{readBigEndian16(&reply[kStatusAt]), readBigEndian32(&reply[kBlockOffsetAt]),
                     readBigEndian32(&reply[kBlockTotalAt]), readBigEndian16(&reply[kBlockSumAt]),
                     reply.subspan(kBlockDataAt, length)};
}

} // namespace packets
