// SPDX-License-Identifier: MIT
// Helpers of the targets: a claim that must hold for every input, and an input that is consumed
// from the front.
//
// Owns:    nothing; views lie inside the bytes that libFuzzer gave.
// Threads: none of its own.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

// A target alone uses its objects: no other thread can hold, or wait for, their locks.
#pragma clang diagnostic ignored "-Wthread-safety-analysis"

// libFuzzer saves the input of a process that aborts here.
inline void require(bool holds, const char* claim)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", claim);
    std::abort();
}

inline std::string_view asText(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

// An exhausted input gives zeros and short texts.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_rest(asText(data, size)) { }

    [[nodiscard]] bool empty() const { return m_rest.empty(); }
    std::string_view text(std::size_t length)
    {
        const auto taken = m_rest.substr(0, length);
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    std::uint8_t byte()
    {
        const auto taken = text(1);
        return taken.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(taken.front());
    }
    std::uint16_t number() // most significant byte first
    {
        const unsigned high = byte();
        return static_cast<std::uint16_t>(high << 8 | byte());
    }
    // The text up to the separator, which is skipped; the whole rest without a separator.
    std::string_view until(char separator)
    {
        const auto taken = text(std::min(m_rest.find(separator), m_rest.size()));
        text(1);
        return taken;
    }

private:
    std::string_view m_rest;
};
