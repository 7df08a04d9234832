// SPDX-License-Identifier: MIT
// Numbers in the byte order of the wire, most significant byte first, inside packed records.
//
// Threads: any; plain values.
#pragma once
#include <cstdint>

struct BigEndian16 {
    unsigned char bytes[2];

    void set(std::uint32_t value) // the lower 16 bits
    {
        bytes[0] = static_cast<unsigned char>(value >> 8);
        bytes[1] = static_cast<unsigned char>(value);
    }
};

struct BigEndian32 {
    unsigned char bytes[4];

    void set(std::uint32_t value)
    {
        bytes[0] = static_cast<unsigned char>(value >> 24);
        bytes[1] = static_cast<unsigned char>(value >> 16);
        bytes[2] = static_cast<unsigned char>(value >> 8);
        bytes[3] = static_cast<unsigned char>(value);
    }
};

inline std::uint16_t readBigEndian16(const unsigned char* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]);
}

inline std::uint32_t readBigEndian32(const unsigned char* bytes)
{
    return static_cast<std::uint32_t>(readBigEndian16(bytes)) << 16 | readBigEndian16(bytes + 2);
}
