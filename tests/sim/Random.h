// SPDX-License-Identifier: MIT
// Random numbers from one seed, the same on every machine and with every library.
//
// Threads: one at a time.
#pragma once
#include <cstdint>
#include <initializer_list>
#include <iterator>

namespace sim {

class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed) { }

    std::uint64_t next() // splitmix64: a seed of 0 is as good as any
    {
        m_state += 0x9E3779B97F4A7C15;
        auto z = m_state;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9;
        z = (z ^ z >> 27) * 0x94D049BB133111EB;
        return z ^ z >> 31;
    }
    std::uint64_t below(std::uint64_t limit) { return next() % limit; }
    std::uint64_t between(std::uint64_t low, std::uint64_t high)
    {
        return low + below(high - low + 1);
    }
    bool chance(unsigned percent) { return below(100) < percent; }
    template <class T> T of(std::initializer_list<T> choices)
    {
        return *std::next(choices.begin(), static_cast<std::ptrdiff_t>(below(choices.size())));
    }

private:
    std::uint64_t m_state;
};

} // namespace sim
