// SHA-256 (FIPS 180-4), byte by byte as the standard describes it: the fingerprint by which the
// bytes that are sent are held against the bytes that were checked. Written here because the engine
// stands on the standard library alone.
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
    // The digest of all bytes so far; the object is not to be used any more.
    [[nodiscard]] Digest finish();

    static Digest of(std::span<const unsigned char> bytes);
    // 64 hexadecimal digits of either case; no value for anything else.
    static std::optional<Digest> fromHex(std::string_view text);
    static std::string toHex(const Digest& digest); // in lower case

private:
    static constexpr std::size_t kBlock = 64; // bytes that the function takes in one step
    void addBlock(const unsigned char* block);

    std::array<std::uint32_t, 8> m_state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                            0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, kBlock> m_rest{}; // bytes that fill no block yet
    std::uint64_t m_length = 0; // of all bytes
};
