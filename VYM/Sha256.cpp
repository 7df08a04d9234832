// SPDX-License-Identifier: MIT
#include "VYM/Sha256.h"

#include "VYM/AsciiCase.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace {

// The first 32 bits of the fractional parts of the cube roots of the first 64 primes.
constexpr std::array<std::uint32_t, 64> kRound = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

constexpr std::string_view kHexDigits = "0123456789abcdef";

std::uint32_t bigEndian(const unsigned char* bytes)
{
    return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16
        | static_cast<std::uint32_t>(bytes[2]) << 8 | static_cast<std::uint32_t>(bytes[3]);
}

// The message schedule of one block.
std::array<std::uint32_t, 64> scheduleOf(const unsigned char* block)
{
    std::array<std::uint32_t, 64> w{};
    for (std::size_t i = 0; i < 16; ++i)
        w[i] = bigEndian(block + 4 * i);
    for (std::size_t i = 16; i < w.size(); ++i) {
        const auto low = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ w[i - 15] >> 3;
        const auto high = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ w[i - 2] >> 10;
        w[i] = w[i - 16] + low + w[i - 7] + high;
    }
    return w;
}

} // namespace

void Sha256::addBlock(const unsigned char* block)
{
    const auto w = scheduleOf(block);
    auto [a, b, c, d, e, f, g, h] = m_state;
    for (std::size_t i = 0; i < w.size(); ++i) {
        const auto sum1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
        const auto chosen = (e & f) ^ (~e & g);
        const auto t1 = h + sum1 + chosen + kRound[i] + w[i];
        const auto sum0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
        const auto majority = (a & b) ^ (a & c) ^ (b & c);
        h = g;
        g = f;
        f = e;
        e = d + t1;
        d = c;
        c = b;
        b = a;
        a = t1 + sum0 + majority;
    }
    const std::array<std::uint32_t, 8> step = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < step.size(); ++i)
        m_state[i] += step[i];
}

void Sha256::add(std::span<const unsigned char> bytes)
{
    assert(!m_isFinished);
    const auto held = static_cast<std::size_t>(m_length % kBlock);
    m_length += bytes.size();
    if (held != 0) {
        const auto taken = std::min(kBlock - held, bytes.size());
        std::copy_n(bytes.begin(), taken, m_rest.begin() + held);
        bytes = bytes.subspan(taken);
        if (held + taken < kBlock)
            return;
        addBlock(m_rest.data());
    }
    for (; bytes.size() >= kBlock; bytes = bytes.subspan(kBlock))
        addBlock(bytes.data());
    std::copy(bytes.begin(), bytes.end(), m_rest.begin());
}

Sha256::Digest Sha256::finish()
{
    // One bit, zeros up to eight bytes before a block's end, and the length in bits.
    const auto bits = m_length * 8;
    const auto held = static_cast<std::size_t>(m_length % kBlock);
    std::array<unsigned char, 2 * kBlock> tail{};
    const auto size = held < kBlock - 8 ? kBlock - held : 2 * kBlock - held;
    tail[0] = 0x80;
    for (std::size_t i = 0; i < 8; ++i)
        tail[size - 1 - i] = static_cast<unsigned char>(bits >> 8 * i);
    add(std::span(tail).first(size));
    assert(m_length % kBlock == 0);
    m_isFinished = true;
    Digest digest{};
    for (std::size_t i = 0; i < digest.size(); ++i)
        digest[i] = static_cast<unsigned char>(m_state[i / 4] >> (24 - 8 * (i % 4)));
    return digest;
}

Sha256::Digest Sha256::of(std::span<const unsigned char> bytes)
{
    Sha256 sum;
    sum.add(bytes);
    return sum.finish();
}

std::optional<Sha256::Digest> Sha256::fromHex(std::string_view text)
{
    Digest digest{};
    if (text.size() != 2 * digest.size())
        return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto value = kHexDigits.find(ascii::lower(text[i]));
        if (value == std::string_view::npos)
            return std::nullopt;
        digest[i / 2] = static_cast<unsigned char>(std::size_t{digest[i / 2]} * 16 + value);
    }
    return digest;
}

std::string Sha256::toHex(const Digest& digest)
{
    std::string text;
    for (const auto byte : digest) {
        text += kHexDigits[byte >> 4];
        text += kHexDigits[byte & 0xF];
    }
    return text;
}
