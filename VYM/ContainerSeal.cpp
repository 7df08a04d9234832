// SPDX-License-Identifier: MIT
#include "VYM/ContainerSeal.h"

#include <algorithm>
#include <cassert>
#include <new>

bool ContainerSeal::take(std::uint64_t size, const Read& container, const Watch& watch)
{
    m_isTaken = false;
    m_size = size;
    try {
        m_digests.clear();
        m_digests.reserve(m_size / kPart + 1);
        m_bytes.resize(kPart);
    } catch (const std::bad_alloc&) {
        return false;
    }
    for (std::uint64_t at = 0; at < m_size; at += kPart) {
        const auto length = std::min<std::uint64_t>(kPart, m_size - at);
        if (!container(at, m_bytes.data(), length))
            return false;
        const auto part = std::span(m_bytes).first(length);
        m_digests.push_back(Sha256::of(part));
        if (watch && !watch(part))
            return false;
    }
    m_isTaken = true;
    return true;
}

// Reads a part, and returns whether it is still the same as when it was sealed. Reads the file each
// time: a changed package ends the run, even if the old bytes are still in memory.
bool ContainerSeal::check(const Read& container, std::size_t part)
{
    assert(part < m_digests.size());
    const auto at = static_cast<std::uint64_t>(part) * kPart;
    const auto length = std::min<std::uint64_t>(kPart, m_size - at);
    return container(at, m_bytes.data(), length)
        && Sha256::of(std::span(m_bytes).first(length)) == m_digests[part];
}

bool ContainerSeal::read(const Read& container, std::uint64_t offset, unsigned char* buffer,
                         unsigned long length)
{
    assert(m_isTaken && container && (buffer != nullptr || length == 0));
    if (offset > m_size || length > m_size - offset)
        return false;
    while (length != 0) {
        if (!check(container, static_cast<std::size_t>(offset / kPart)))
            return false;
        const auto from = static_cast<std::size_t>(offset % kPart);
        const auto taken = std::min<std::uint64_t>(length, kPart - from);
        std::copy_n(m_bytes.begin() + static_cast<std::ptrdiff_t>(from), taken, buffer);
        buffer += taken;
        offset += taken;
        length -= taken;
    }
    return true;
}
