// SPDX-License-Identifier: MIT
// The layout of a package container: file data, a table of 40-byte entries, and a trailer in the
// last 16 bytes with the table's offset. Integers are 32 bits, little-endian.
//
// Threads: any. Values only; reads and writes no file.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vympack {

inline constexpr std::string_view kMagic{"VYMBIND\0", 8}; // including its NUL
inline constexpr std::size_t kTrailerSize = 16;
inline constexpr std::size_t kCountInTrailer = 4;
inline constexpr std::size_t kMagicInTrailer = 8;

inline constexpr std::size_t kEntrySize = 40;
inline constexpr std::size_t kNameSize = 32; // the last byte is the closing NUL
inline constexpr std::size_t kOffsetInEntry = 32;
inline constexpr std::size_t kSizeInEntry = 36;

// A package has a handful of files, looked up one after the other; a larger table is damaged.
inline constexpr std::uint32_t kMostEntries = 4096;
// Every position in the file has to fit the 32-bit fields.
inline constexpr std::uint64_t kMostBytes = 0xFFFFFFFF;

inline constexpr std::string_view kPackageName = "VYMBINDDATA"; // the programs look for this name
inline constexpr std::string_view kDescriptionName = "VYMINFO.txt";
// A description has a few dozen rows; a larger file is another one, taken by mistake.
inline constexpr std::uint64_t kMostDescription = std::uint64_t{16} * 1024 * 1024;

using TrailerBytes = std::array<unsigned char, kTrailerSize>;
using EntryBytes = std::array<unsigned char, kEntrySize>;

inline std::uint32_t littleEndian(const unsigned char* bytes)
{
    return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16
        | std::uint32_t{bytes[3]} << 24;
}

inline void putLittleEndian(unsigned char* bytes, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<unsigned char>(value >> (8 * i));
}

} // namespace vympack
