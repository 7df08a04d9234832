// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/FileBlocks.h"

#include "Tools/vymprinter/PrinterModel.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace vymprinter {
namespace {

constexpr std::size_t kHugeLine = 1U << 20; // far larger than any buffer for a row
constexpr std::uint32_t kHugeTotal = 0xFFFFFFF0;

ByteView bytesOf(const std::string& text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

std::string faultyTargetInfo(std::string text, const FaultSet& faults, const std::string& maxPacket)
{
    if (faults.has(FaultKind::wrongModel))
        text = "TGMNAME \"Another model\"\r\n" + withoutRows(text, "TGMNAME");
    if (faults.has(FaultKind::noModel))
        text = withoutRows(text, "TGMNAME");
    if (faults.has(FaultKind::noMaxPacket))
        text = withoutRows(text, "MAXPACKET");
    if (faults.has(FaultKind::badMaxPacket))
        text = "MAXPACKET " + maxPacket + "\r\n" + withoutRows(text, "MAXPACKET");
    if (faults.has(FaultKind::hugeLine))
        text = "REMARK " + std::string(kHugeLine, 'A') + "\r\n" + text;
    return text;
}

FileBlocks::FileBlocks(std::string text, std::size_t limit, const FaultSet& faults)
    : m_text(std::move(text)), m_room(limit - kFileBlockHeadSize), m_faults(faults)
{
    assert(limit >= kSmallestBlock);
}

bool FileBlocks::endless() const
{
    return m_faults.has(FaultKind::endless) || m_faults.has(FaultKind::endlessEmpty);
}

FileBlock FileBlocks::next()
{
    assert(!m_done);
    const auto all = bytesOf(m_text);
    FileBlock block;
    block.offset = m_offset;
    block.total = static_cast<std::uint32_t>(all.size());
    const auto from = endless() ? 0 : std::min<std::size_t>(m_offset, all.size());
    if (!m_faults.has(FaultKind::endlessEmpty))
        block.data = all.subspan(from, std::min(m_room, all.size() - from));
    m_offset += static_cast<std::uint32_t>(block.data.size());
    m_done = !endless() && m_offset == all.size();
    block.status = m_done ? status::kDone : status::kMoreBlocks;
    block.checksum = byteSum(m_done ? all : block.data);
    spoil(block);
    return block;
}

void FileBlocks::spoil(FileBlock& block) const
{
    const bool first = block.offset == 0;
    if (first && m_faults.has(FaultKind::hugeTotal))
        block.total = kHugeTotal;
    if (first && m_faults.has(FaultKind::offsetWrap))
        block.offset = std::numeric_limits<std::uint32_t>::max()
            - static_cast<std::uint32_t>(block.data.size() / 2);
    if (m_done && m_faults.has(FaultKind::badChecksum))
        ++block.checksum;
}

} // namespace vymprinter
