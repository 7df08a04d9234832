// SPDX-License-Identifier: MIT
#include "DevConn/ReceiveCache.h"

#include <algorithm>
#include <cassert>

std::uint32_t ReceiveCache::SetCacheData(const unsigned char* data, std::uint32_t length)
{
    assert(m_size <= kCapacity);
    if (data == nullptr)
        return 0;
    const auto stored = std::min(length, kCapacity - m_size);
    std::copy_n(data, stored, m_bytes.begin() + m_size);
    m_size += stored;
    return stored;
}

std::uint32_t ReceiveCache::GetCacheData(unsigned char* buffer, std::uint32_t length)
{
    if (buffer == nullptr)
        return 0;
    assert(m_size <= kCapacity);
    const auto taken = std::min(length, m_size);
    std::copy_n(m_bytes.begin(), taken, buffer);
    std::shift_left(m_bytes.begin(), m_bytes.begin() + m_size, taken);
    m_size -= taken;
    return taken;
}
