// SPDX-License-Identifier: MIT
// SHA-256 (FIPS 180-4): the digest for comparing sent bytes with checked bytes. Implemented here
// because the engine uses only the standard library.
//
// Owns:    its state, by value.
// Threads: none of its own.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class Sha256 {
public:
    using Digest = std::array<unsigned char, 32>;

    void add(std::span<const unsigned char> bytes);
    // The digest of all bytes so far; the object must not be used afterwards.
    [[nodiscard]] Digest finish();

    static Digest of(std::span<const unsigned char> bytes);
    // Reads 64 hexadecimal digits of either case; no value for anything else.
    static std::optional<Digest> fromHex(std::string_view text);
    static std::string toHex(const Digest& digest); // in lower case

private:
    static constexpr std::size_t kBlock = 64; // bytes per step of the function
    void addBlock(const unsigned char* block);

    std::array<std::uint32_t, 8> m_state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                            0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, kBlock> m_rest{}; // bytes of an incomplete block
    std::uint64_t m_length = 0; // of all bytes
    bool m_isFinished = false;
};
