// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterWire.h"

#include <algorithm>
#include <cassert>
#include <numeric>

namespace vymprinter {
namespace {

constexpr std::size_t kNameOffset = 10;
constexpr std::size_t kNameSize = 32;
constexpr std::size_t kNamedRequestSize = kNameOffset + kNameSize; // get file, status query
constexpr std::size_t kModeRequestSize = 44; // enter, exit: an unused name and a flag
constexpr std::size_t kShortQuerySize = 10; // the status query without a name
constexpr std::uint16_t kHighestFlag = 1; // the flag of an enter request is 0 or 1

bool isZero(ByteView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
}

void readName(ByteView packet, Request& request)
{
    const auto field = packet.subspan(kNameOffset, kNameSize);
    const auto end = std::find(field.begin(), field.end(), std::uint8_t{0});
    request.name.assign(field.begin(), end);
    if (end == field.end())
        request.defect = "the name has no end";
    else if (!isZero(field.subspan(request.name.size())))
        request.defect = "bytes after the name are not zero";
}

void readSendFile(ByteView packet, Request& request)
{
    if (packet.size() < kSendFileHeadSize) {
        request.defect = "shorter than a send-file head";
        return;
    }
    readName(packet, request);
    request.kind = get16(packet, 42);
    request.start = get32(packet, 44);
    request.end = get32(packet, 48);
    request.checksum = get16(packet, 52);
    request.count = get32(packet, 56);
    request.data = packet.subspan(kSendFileHeadSize);
    if (request.count != request.data.size())
        request.defect = "header length and data count differ";
    else if (get16(packet, 54) != 0)
        request.defect = "bytes before the data count are not zero";
}

void readMode(ByteView packet, Request& request)
{
    if (packet.size() != kModeRequestSize)
        request.defect = "not 44 bytes long";
    else if (!isZero(packet.subspan(kNameOffset, kNameSize)))
        request.defect = "the unused name is not zero";
    else if (get16(packet, 42) > (request.command == command::kEnter ? kHighestFlag : 0))
        request.defect = "unknown flag";
}

void readNamed(ByteView packet, Request& request)
{
    if (request.command == command::kStatusQuery && packet.size() == kShortQuerySize)
        return;
    if (packet.size() != kNamedRequestSize)
        request.defect = "not 42 bytes long";
    else
        readName(packet, request);
}

void readBody(ByteView packet, Request& request)
{
    switch (request.command) {
    case command::kSendFile:
        return readSendFile(packet, request);
    case command::kEnter:
    case command::kExit:
        return readMode(packet, request);
    case command::kGetFile:
    case command::kStatusQuery:
        return readNamed(packet, request);
    default:
        request.defect = "unknown command";
    }
}

Bytes reply(std::uint16_t code, std::size_t size, std::uint16_t status)
{
    Bytes bytes(size);
    put16(bytes, 2, code);
    put32(bytes, 4, static_cast<std::uint32_t>(size - kHeaderSize));
    put16(bytes, 10, status);
    return bytes;
}

} // namespace

std::uint16_t get16(ByteView bytes, std::size_t offset)
{
    assert(offset + 1 < bytes.size());
    return static_cast<std::uint16_t>(bytes[offset] << 8 | bytes[offset + 1]);
}

std::uint32_t get32(ByteView bytes, std::size_t offset)
{
    return std::uint32_t{get16(bytes, offset)} << 16 | get16(bytes, offset + 2);
}

void put16(Bytes& bytes, std::size_t offset, std::uint16_t value)
{
    bytes.at(offset) = static_cast<std::uint8_t>(value >> 8);
    bytes.at(offset + 1) = static_cast<std::uint8_t>(value & 0xFF);
}

void put32(Bytes& bytes, std::size_t offset, std::uint32_t value)
{
    put16(bytes, offset, static_cast<std::uint16_t>(value >> 16));
    put16(bytes, offset + 2, static_cast<std::uint16_t>(value & 0xFFFF));
}

std::uint16_t byteSum(ByteView bytes, std::uint16_t sum)
{
    return static_cast<std::uint16_t>(
        std::accumulate(bytes.begin(), bytes.end(), std::uint64_t{sum}));
}

Request decodeRequest(ByteView packet)
{
    Request request;
    if (packet.size() < kHeaderSize + sizeof(std::uint16_t)) {
        request.command = packet.size() < 4 ? std::uint16_t{0} : get16(packet, 2);
        request.defect = "shorter than any request";
        return request;
    }
    request.command = get16(packet, 2);
    readBody(packet, request);
    if (request.defect.empty() && (get16(packet, 0) != 0 || get16(packet, 8) != 0))
        request.defect = "a reserved word is not zero";
    return request;
}

std::size_t firmwareBytesIn(ByteView packetSoFar)
{
    if (packetSoFar.size() <= kSendFileHeadSize || get16(packetSoFar, 2) != command::kSendFile)
        return 0;
    return packetSoFar.size() - kSendFileHeadSize;
}

std::string printable(std::string_view name)
{
    std::string shown(name);
    std::replace_if(
        shown.begin(), shown.end(), [](char letter) { return letter <= ' ' || letter > '~'; }, '_');
    return shown.empty() ? "-" : shown;
}

Bytes encodeSimpleReply(std::uint16_t code, std::uint16_t status)
{
    return reply(code, kSimpleReplySize, status);
}

Bytes encodeStatusReply(std::uint16_t status, std::uint32_t total, std::uint32_t written)
{
    auto bytes = reply(command::kStatusQuery, kStatusReplySize, status);
    put32(bytes, 12, total);
    put32(bytes, 16, written);
    return bytes;
}

Bytes encodeFileBlock(const FileBlock& block)
{
    auto bytes = reply(command::kGetFile, kFileBlockHeadSize + block.data.size(), block.status);
    put32(bytes, 12, block.offset);
    put32(bytes, 16, block.total);
    put16(bytes, 20, block.checksum);
    put32(bytes, 24, static_cast<std::uint32_t>(block.data.size()));
    std::copy(block.data.begin(), block.data.end(), bytes.begin() + kFileBlockHeadSize);
    return bytes;
}

} // namespace vymprinter
