// The SHA-256 digest of bytes that come in pieces, as FIPS 180-4 defines it.
//
// Owns:      its state, by value.
// Threads:   none of its own.
// Invariant: m_used < kBlock bytes of m_block wait for the rest of their block.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace vympack {

class Sha256 {
public:
    void add(const void* data, std::size_t length);
    // The digest of all bytes added, as 64 lower-case hexadecimal digits. Nothing is added
    // afterwards.
    [[nodiscard]] std::string finish();

private:
    static constexpr std::size_t kBlock = 64;
    static constexpr std::size_t kWords = 8;

    void takeBlock();

    // The fractional parts of the square roots of the first eight primes.
    std::array<std::uint32_t, kWords> m_state{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                              0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, kBlock> m_block{};
    std::size_t m_used = 0;
    std::uint64_t m_length = 0; // bytes added so far
};

} // namespace vympack
