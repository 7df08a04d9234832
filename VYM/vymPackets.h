// SPDX-License-Identifier: MIT
// The command packets as values: request records, their checksum, the check of a reply's header and
// the reading of its fields. The only place that knows the offset of a field. No I/O, no
// allocation; the caller owns records, and a view must not outlive its bytes.
//
// Threads: any.
#pragma once
#include "VYM/BigEndian.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace packets {

constexpr std::uint16_t kGetFile = 0x5001;
constexpr std::uint16_t kSendFile = 0x5002;
constexpr std::uint16_t kEnterDownload = 0x5101;
constexpr std::uint16_t kExitDownload = 0x5102;
constexpr std::uint16_t kQueryStatus = 0x5103; // a printer that supports it lists this number

// Block kinds of a file packet.
constexpr std::uint16_t kData = 0;
constexpr std::uint16_t kLastUnpolled = 0x80; // the printer's status is not queried afterwards
constexpr std::uint16_t kLastPolled = 0x81;
constexpr std::uint16_t kHeadOnly = 0x1FF;

// Status values in replies.
constexpr std::uint16_t kMoreFollows = 0;
constexpr std::uint16_t kFinished = 0x0080;
constexpr std::uint16_t kWriting = 0x0081;
constexpr std::uint16_t kDeviceRefused = 0x0803;
constexpr std::uint16_t kDataRefused = 0x0804;
constexpr std::uint16_t kEnterBusy = 0x1001;
constexpr std::uint16_t kEnterFax = 0x1002;

// Larger packets than this are no faster; a packet never needs more memory, whatever a printer
// offers.
constexpr int kMostPacket = 4 * 1024 * 1024;

constexpr std::size_t kNameSize = 32; // firmware and file names, NUL-padded

} // namespace packets

struct TAG_SSTHEADER {
    BigEndian16 m_reserved; // 0 in requests, ignored in replies
    BigEndian16 m_code;
    BigEndian32 m_length; // of the body that follows
};
static_assert(sizeof(TAG_SSTHEADER) == 8);

struct TAG_CMDGETFILE {
    TAG_SSTHEADER m_header;
    BigEndian16 m_zero;
    char m_name[packets::kNameSize];
};
static_assert(sizeof(TAG_CMDGETFILE) == 42);

struct TAG_CMDENTERDOWNLOAD {
    TAG_SSTHEADER m_header;
    BigEndian16 m_zero;
    char m_name[packets::kNameSize]; // always empty
    BigEndian16 m_flag;
};
static_assert(sizeof(TAG_CMDENTERDOWNLOAD) == 44);

struct TAG_CMDEXITDOWNLOAD {
    TAG_SSTHEADER m_header;
    BigEndian16 m_zero;
    char m_name[packets::kNameSize]; // always empty
    BigEndian16 m_flag; // always 0
};
static_assert(sizeof(TAG_CMDEXITDOWNLOAD) == 44);

struct TAG_CMDQUERYUPDATESTATUS {
    TAG_SSTHEADER m_header;
    BigEndian16 m_zero;
    char m_name[packets::kNameSize];
};
static_assert(sizeof(TAG_CMDQUERYUPDATESTATUS) == 42);

struct TAG_CMDQUERYUPDATESTATUS_SP {
    TAG_SSTHEADER m_header;
    BigEndian16 m_zero;
};
static_assert(sizeof(TAG_CMDQUERYUPDATESTATUS_SP) == 10);

// The head of a file packet; m_dataLength bytes follow it in the same buffer.
struct TAG_CMDSENDFILE {
    TAG_SSTHEADER m_header;
    BigEndian16 m_zero;
    char m_name[packets::kNameSize];
    BigEndian16 m_kind;
    BigEndian32 m_start; // of this piece within the firmware file
    BigEndian32 m_end; // the firmware file's size
    BigEndian16 m_checkSum;
    BigEndian16 m_zero2;
    BigEndian32 m_dataLength;
};
static_assert(sizeof(TAG_CMDSENDFILE) == 60);

namespace packets {

constexpr std::size_t kFileHeadSize = sizeof(TAG_CMDSENDFILE);
constexpr std::size_t kHeaderSize = sizeof(TAG_SSTHEADER);

// The number of bytes that a header announces.
std::uint32_t bodyLengthOf(std::span<const unsigned char, kHeaderSize> header);

// The protocol's only checksum: the sum of all bytes modulo 65536.
std::uint16_t byteSum(std::span<const unsigned char> data);

void setHeader(TAG_SSTHEADER& header, std::uint16_t code, std::uint32_t bodyLength);

// Each builder zeroes the record first. A null name or one of 32 or more characters leaves its
// field empty.
TAG_CMDGETFILE getFile(const char* name);
TAG_CMDENTERDOWNLOAD enterDownload(bool flag);
TAG_CMDEXITDOWNLOAD exitDownload();
TAG_CMDQUERYUPDATESTATUS queryStatus(const char* name);
TAG_CMDQUERYUPDATESTATUS_SP queryStatusShort();

struct FilePiece {
    std::uint16_t kind;
    std::uint32_t start;
    std::uint32_t end;
    const unsigned char* data; // may be null
    std::uint32_t length; // of the data; without data, a last block's running checksum
    std::optional<std::uint16_t> dataSum{}; // if it is known already
};
// In a last block with data, start must not exceed end, since the data lie between them.
TAG_CMDSENDFILE sendFile(const char* name, const FilePiece& piece);

constexpr bool isLast(std::uint16_t kind)
{
    return kind == kLastUnpolled || kind == kLastPolled;
}

// A transport's view of a packet: whether it belongs to the file command, and the fields of its
// head. A field that the packet is too short for reads as 0.
class FilePacket {
public:
    explicit FilePacket(std::span<const unsigned char> packet) : m_packet(packet) { }
    // Null bytes mean an empty packet, whatever length says.
    FilePacket(const unsigned char* bytes, std::size_t length)
        : m_packet(bytes, bytes != nullptr ? length : 0)
    {
    }

    // Belongs to the file command, and is long enough for its kind.
    [[nodiscard]] bool isFile() const;
    // Is long enough for the offsets of its data.
    [[nodiscard]] bool showsProgress() const;
    // Head and kind of a data piece, and of the packets that close a file.
    [[nodiscard]] bool isData() const { return isWhole() && kind() == kData; }
    [[nodiscard]] bool isClosing() const { return isWhole() && isLast(kind()); }

    [[nodiscard]] std::uint16_t kind() const;
    [[nodiscard]] std::uint32_t start() const;
    [[nodiscard]] std::uint32_t end() const;
    [[nodiscard]] std::uint16_t sum() const;
    [[nodiscard]] std::uint32_t dataLength() const; // according to the head
    [[nodiscard]] std::span<const unsigned char> name() const; // NUL-padded
    [[nodiscard]] std::span<const unsigned char> data() const; // what really follows the head

private:
    [[nodiscard]] bool isWhole() const { return isFile() && m_packet.size() >= kFileHeadSize; }
    [[nodiscard]] bool has(std::size_t at, std::size_t width) const
    {
        return m_packet.size() >= at + width;
    }

    std::span<const unsigned char> m_packet;
};

// Whether this packet, request or reply, belongs to that command. It may be empty.
bool isOf(std::uint16_t code, std::span<const unsigned char> packet);
// Whether this is a complete reply to that command: at least a header, the expected code, and a
// body of exactly the announced length.
bool isReplyTo(std::uint16_t code, std::span<const unsigned char> reply);
// The fields of a reply; empty if the reply is too short to hold them.
std::optional<std::uint16_t> statusOf(std::span<const unsigned char> reply);

struct Counts {
    std::uint32_t total;
    std::uint32_t done;
};
std::optional<Counts> countsOf(std::span<const unsigned char> reply);

struct FileBlock {
    std::uint16_t status;
    std::uint32_t offset; // in the file
    std::uint32_t total; // the file's size
    std::uint16_t checkSum;
    std::span<const unsigned char> data;
};
std::optional<FileBlock> fileBlockOf(std::span<const unsigned char> reply);

} // namespace packets
