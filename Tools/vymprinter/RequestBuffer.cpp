// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/RequestBuffer.h"

#include <algorithm>
#include <cassert>

namespace vymprinter {

void RequestBuffer::append(ByteView bytes)
{
    m_bytes.erase(m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(m_head));
    m_head = 0;
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
}

std::uint64_t RequestBuffer::announced() const
{
    assert(rest().size() >= kHeaderSize);
    return std::uint64_t{get32(rest(), 4)} + kHeaderSize;
}

ByteView RequestBuffer::front() const
{
    const auto bytes = rest();
    if (bytes.size() < kHeaderSize)
        return bytes;
    return bytes.first(
        static_cast<std::size_t>(std::min<std::uint64_t>(announced(), bytes.size())));
}

bool RequestBuffer::frontIsWhole() const
{
    return rest().size() >= kHeaderSize && rest().size() >= announced();
}

bool RequestBuffer::frontIsAbsurd() const
{
    return rest().size() >= kHeaderSize && announced() > m_longest;
}

void RequestBuffer::drop()
{
    assert(!front().empty());
    m_head += front().size();
}

void RequestBuffer::clear()
{
    m_bytes.clear();
    m_head = 0;
}

} // namespace vymprinter
