// SPDX-License-Identifier: MIT
#include "VYM/FileAssembly.h"

#include <algorithm>
#include <cassert>

namespace {

// TargetInfo.txt has a few kilobytes; no printer may make us allocate gigabytes for it.
constexpr std::uint32_t kLargestText = 16 * 1024 * 1024;

bool isLast(std::uint16_t status)
{
    return status == packets::kFinished || status == packets::kWriting;
}

} // namespace

bool FileAssembly::begin(std::uint32_t size)
{
    if (size > kLargestText)
        return false;
    m_bytes.reset(static_cast<unsigned char*>(AllocMem(size)));
    m_size = size;
    return m_bytes != nullptr;
}

void FileAssembly::copy(const packets::FileBlock& block)
{
    assert(m_bytes != nullptr);
    if (block.offset >= m_size)
        return;
    const auto room = static_cast<std::size_t>(m_size - block.offset);
    std::copy_n(block.data.data(), std::min(block.data.size(), room), m_bytes.get() + block.offset);
}

FileAssembly::Step FileAssembly::add(const packets::FileBlock& block)
{
    if (!isLast(block.status) && block.status != packets::kMoreFollows)
        return Step::badBlock;
    if (m_bytes == nullptr && !begin(block.total))
        return Step::tooLarge;
    copy(block);
    m_received += block.data.size();
    // The sum of an earlier block is ignored: only the sum of the whole file counts.
    if (!isLast(block.status))
        return block.data.empty() || m_received > m_size ? Step::badBlock : Step::more;
    m_isDamaged = packets::byteSum(bytes()) != block.checkSum;
    return m_isDamaged ? Step::damaged : Step::complete;
}
