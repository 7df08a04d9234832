// SPDX-License-Identifier: MIT
// An updater's requests, written by hand for the tests of the virtual printer.
//
// Threads:   any.
// Invariant: byte order and offsets are written here, not taken from the printer's own code.
#pragma once
#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

namespace requests {

using Packet = std::vector<std::uint8_t>;

inline void put(Packet& packet, std::size_t at, std::uint64_t value, int width)
{
    for (int i = width; i-- > 0; value >>= 8)
        packet.at(at + static_cast<std::size_t>(i)) = static_cast<std::uint8_t>(value & 0xFF);
}

inline Packet blank(std::uint16_t code, std::size_t size)
{
    Packet packet(size);
    put(packet, 2, code, 2);
    put(packet, 4, size - 8, 4);
    return packet;
}

inline Packet named(std::uint16_t code, std::size_t size, const std::string& name)
{
    auto packet = blank(code, size);
    std::copy(name.begin(), name.end(), packet.begin() + 10);
    return packet;
}

inline Packet enter()
{
    return blank(0x5101, 44);
}
inline Packet exit()
{
    return blank(0x5102, 44);
}
inline Packet getFile(const std::string& name = "TargetInfo.txt")
{
    return named(0x5001, 42, name);
}
inline Packet query(const std::string& name)
{
    return named(0x5103, 42, name);
}
inline Packet shortQuery()
{
    return blank(0x5103, 10);
}

inline std::uint16_t sum(const Packet& bytes)
{
    return static_cast<std::uint16_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

inline Packet sendFile(std::uint16_t kind, std::uint32_t start, std::uint32_t end,
                       const Packet& data, std::uint16_t checksum)
{
    auto packet = named(0x5002, 60 + data.size(), "MAIN.BIN");
    put(packet, 42, kind, 2);
    put(packet, 44, start, 4);
    put(packet, 48, end, 4);
    put(packet, 52, checksum, 2);
    put(packet, 56, data.size(), 4);
    std::copy(data.begin(), data.end(), packet.begin() + 60);
    return packet;
}

inline Packet piece(std::uint32_t start, std::uint32_t end, const Packet& data)
{
    return sendFile(0, start, end, data, sum(data));
}

// The last block without data, which has the sum of the whole file.
inline Packet last(std::uint16_t kind, const Packet& file)
{
    const auto size = static_cast<std::uint32_t>(file.size());
    return sendFile(kind, size, size, {}, sum(file));
}

// Bytes with a long period, which is never the size of a packet.
inline Packet firmware(std::size_t size)
{
    Packet bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 31 + i / 251);
    return bytes;
}

// A file as its pieces and the last block without data.
inline std::vector<Packet> pieces(const Packet& file, std::size_t pieceSize)
{
    std::vector<Packet> all;
    for (std::size_t at = 0; at < file.size(); at += pieceSize) {
        const auto size = std::min(pieceSize, file.size() - at);
        const auto from = file.begin() + static_cast<std::ptrdiff_t>(at);
        all.push_back(piece(static_cast<std::uint32_t>(at), static_cast<std::uint32_t>(file.size()),
                            Packet(from, from + static_cast<std::ptrdiff_t>(size))));
    }
    all.push_back(last(129, file));
    return all;
}

} // namespace requests
