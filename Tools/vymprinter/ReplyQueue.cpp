// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/ReplyQueue.h"

#include <algorithm>
#include <cassert>

namespace vymprinter {
namespace {

// Enough for all replies that a slow link delays; an updater that never reads has to wait.
constexpr std::size_t kMostParts = 8192;
constexpr std::size_t kMostBytes = 256U << 10;

} // namespace

void ReplyQueue::push(Outgoing part)
{
    assert(part.end == LinkEnd::none || part.bytes.empty());
    if (!m_parts.empty())
        part.due = std::max(part.due, m_parts.back().due);
    m_bytes += part.bytes.size();
    m_parts.push_back(std::move(part));
}

void ReplyQueue::clear()
{
    m_parts.clear();
    m_bytes = 0;
    m_sent = 0;
}

bool ReplyQueue::full() const
{
    return m_parts.size() >= kMostParts || m_bytes >= kMostBytes;
}

void ReplyQueue::sent(std::size_t count)
{
    assert(!m_parts.empty() && count <= unsent().size());
    m_sent += count;
    if (m_sent < front().bytes.size())
        return;
    m_bytes -= front().bytes.size();
    m_parts.pop_front();
    m_sent = 0;
}

} // namespace vymprinter
