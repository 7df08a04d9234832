// SPDX-License-Identifier: MIT
// The printer's side of the update protocol: parses requests and builds replies. Every integer on
// the wire is big-endian; every packet begins with an 8-byte header whose last four bytes give the
// number of bytes after it.
//
// Owns:      its results; a Request's data is a view into the bytes that it was parsed from.
// Threads:   any; stateless.
// Invariant: no function reads beyond the given bytes.
// Does no I/O and checks only the form of one packet; Download checks the order of packets.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vymprinter {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

constexpr std::size_t kHeaderSize = 8; // reserved word, command code, body length
constexpr std::size_t kSendFileHeadSize = 60; // a send-file request without its data
constexpr std::size_t kSimpleReplySize = 12; // header, zero word, status
constexpr std::size_t kStatusReplySize = 20; // simple reply, total, written
constexpr std::size_t kFileBlockHeadSize = 28; // a file-block reply without its data

namespace command {
constexpr std::uint16_t kGetFile = 0x5001;
constexpr std::uint16_t kSendFile = 0x5002;
constexpr std::uint16_t kEnter = 0x5101;
constexpr std::uint16_t kExit = 0x5102;
constexpr std::uint16_t kStatusQuery = 0x5103;
} // namespace command

namespace status {
constexpr std::uint16_t kMoreBlocks = 0x0000;
constexpr std::uint16_t kDone = 0x0080; // accepted; the last block; finished writing
constexpr std::uint16_t kWriting = 0x0081; // accepted and still writing
constexpr std::uint16_t kNotInDownloadMode = 0x0802;
constexpr std::uint16_t kRefused = 0x0803; // malformed, out of order or not supported
constexpr std::uint16_t kChecksum = 0x0804;
constexpr std::uint16_t kBusy = 0x1001; // another updater holds the printer
constexpr std::uint16_t kFax = 0x1002; // the printer is doing something that it may not interrupt
inline bool isSuccess(std::uint16_t value)
{
    return value == kDone || value == kWriting;
}
} // namespace status

namespace blockKind {
constexpr std::uint16_t kPiece = 0;
constexpr std::uint16_t kLastUnpolled = 0x0080;
constexpr std::uint16_t kLastPolled = 0x0081;
constexpr std::uint16_t kHeadOnly = 0x01FF;
inline bool isLast(std::uint16_t kind)
{
    return kind == kLastUnpolled || kind == kLastPolled;
}
} // namespace blockKind

// A parsed request. Fields that the command does not have are 0 or empty.
struct Request {
    std::uint16_t command = 0;
    std::string name; // the 32-byte field up to its first NUL
    std::uint16_t kind = 0;
    std::uint32_t start = 0;
    std::uint32_t end = 0;
    std::uint16_t checksum = 0;
    std::uint32_t count = 0; // the number of data bytes that the record announces
    ByteView data;
    std::string_view defect; // what is wrong with the packet's form; empty if it is right
};

// One block of a file that the printer sends.
struct FileBlock {
    std::uint16_t status = status::kMoreBlocks;
    std::uint32_t offset = 0;
    std::uint32_t total = 0;
    std::uint16_t checksum = 0;
    ByteView data;
};

// The integer must lie within the bytes.
[[nodiscard]] std::uint16_t get16(ByteView bytes, std::size_t offset);
[[nodiscard]] std::uint32_t get32(ByteView bytes, std::size_t offset);
void put16(Bytes& bytes, std::size_t offset, std::uint16_t value);
void put32(Bytes& bytes, std::size_t offset, std::uint32_t value);

// The protocol's only checksum: the 16-bit sum of the bytes, continued from `sum`.
[[nodiscard]] std::uint16_t byteSum(ByteView bytes, std::uint16_t sum = 0);

// Parses one whole packet, including its header.
[[nodiscard]] Request decodeRequest(ByteView packet);
// The number of firmware bytes that have arrived of a packet with these first bytes.
[[nodiscard]] std::size_t firmwareBytesIn(ByteView packetSoFar);

// A name from the wire, made safe for a terminal or a column: one word, printable characters.
[[nodiscard]] std::string printable(std::string_view name);

[[nodiscard]] Bytes encodeSimpleReply(std::uint16_t code, std::uint16_t status);
[[nodiscard]] Bytes encodeStatusReply(std::uint16_t status, std::uint32_t total,
                                      std::uint32_t written);
[[nodiscard]] Bytes encodeFileBlock(const FileBlock& block);

} // namespace vymprinter
