#include "Tools/vympack/Sha256.h"

#include <algorithm>
#include <bit>

namespace vympack {

namespace {

constexpr std::size_t kRounds = 64;
constexpr std::size_t kGivenWords = 16; // of a block; the rounds use words made from them
constexpr std::size_t kLengthPlace = 56; // the offset of the length in the last block

// The fractional parts of the cube roots of the first 64 primes.
constexpr std::array<std::uint32_t, kRounds> kRoundConstants{
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::array<std::uint32_t, kRounds> wordsOf(const std::array<unsigned char, 64>& block)
{
    std::array<std::uint32_t, kRounds> words{};
    for (std::size_t i = 0; i < kGivenWords; ++i)
        for (std::size_t byte = 0; byte < 4; ++byte)
            words[i] = words[i] << 8 | block[4 * i + byte];
    for (std::size_t i = kGivenWords; i < kRounds; ++i) {
        const auto a = words[i - 15];
        const auto b = words[i - 2];
        words[i] = words[i - 16] + words[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3)
            + (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
    }
    return words;
}

} // namespace

void Sha256::add(const void* data, std::size_t length)
{
    const auto* next = static_cast<const unsigned char*>(data);
    m_length += length;
    while (length > 0) {
        const auto count = std::min(length, kBlock - m_used);
        std::copy_n(next, count, m_block.begin() + static_cast<std::ptrdiff_t>(m_used));
        m_used += count;
        next += count;
        length -= count;
        if (m_used == kBlock)
            takeBlock();
    }
}

void Sha256::takeBlock()
{
    const auto words = wordsOf(m_block);
    auto s = m_state;
    for (std::size_t i = 0; i < kRounds; ++i) {
        const auto big1 = std::rotr(s[4], 6) ^ std::rotr(s[4], 11) ^ std::rotr(s[4], 25);
        const auto choice = (s[4] & s[5]) ^ (~s[4] & s[6]);
        const auto first = s[7] + big1 + choice + kRoundConstants[i] + words[i];
        const auto big0 = std::rotr(s[0], 2) ^ std::rotr(s[0], 13) ^ std::rotr(s[0], 22);
        const auto majority = (s[0] & s[1]) ^ (s[0] & s[2]) ^ (s[1] & s[2]);
        s = {first + big0 + majority, s[0], s[1], s[2], s[3] + first, s[4], s[5], s[6]};
    }
    for (std::size_t i = 0; i < kWords; ++i)
        m_state[i] += s[i];
    m_used = 0;
}

std::string Sha256::finish()
{
    const auto bits = m_length * 8;
    const unsigned char one = 0x80;
    const unsigned char zero = 0;
    add(&one, 1);
    while (m_used != kLengthPlace)
        add(&zero, 1);
    for (int shift = 56; shift >= 0; shift -= 8) {
        const auto byte = static_cast<unsigned char>(bits >> shift);
        add(&byte, 1);
    }
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const auto word : m_state)
        for (int shift = 28; shift >= 0; shift -= 4)
            text += kDigits[word >> shift & 0xF];
    return text;
}

} // namespace vympack
