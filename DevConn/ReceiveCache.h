// SPDX-License-Identifier: MIT
// Bytes from the printer that no caller has consumed yet, oldest first. A bulk read requests whole
// multiples of 512; bytes that its caller did not request wait here.
//
// Owns:      its bytes, by value; no pointer to them ever leaves the object.
// Threads:   none of its own; DevConnUSB embeds one and calls it under the transport's lock.
// Invariant: m_size <= kCapacity; bytes [0, m_size) are valid, the rest are undefined.
#pragma once
#include <array>
#include <cstdint>

class ReceiveCache {
public:
    static constexpr std::uint32_t kCapacity = 512; // one high-speed bulk packet

    // Appends min(length, free room) bytes; returns that count, 0 for null data.
    [[nodiscard]] std::uint32_t SetCacheData(const unsigned char* data, std::uint32_t length);
    // Takes min(length, size) bytes off the front; returns that count, 0 for a null buffer.
    [[nodiscard]] std::uint32_t GetCacheData(unsigned char* buffer, std::uint32_t length);
    [[nodiscard]] std::uint32_t GetCacheDataSize() const { return m_size; }
    void CacheBuffClear() { m_size = 0; }

private:
    std::array<unsigned char, kCapacity> m_bytes{};
    std::uint32_t m_size = 0;
};
