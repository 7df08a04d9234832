// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Download.h"

#include <cassert>

namespace vymprinter {

Verdict Download::accept(const Request& piece)
{
    assert(piece.defect.empty());
    if (piece.kind == blockKind::kHeadOnly && piece.data.empty())
        return {status::kDone, "ok, head only"};
    Verdict verdict;
    if (const auto wrong = defect(piece); !wrong.empty())
        verdict = {status::kRefused, std::string(wrong)};
    else if (!checksumIsRight(piece))
        verdict = {status::kChecksum, "wrong checksum"};
    else if (!keep(piece))
        verdict = {status::kRefused, "could not be stored"};
    else if (blockKind::isLast(piece.kind))
        verdict.status = piece.kind;
    if (!status::isSuccess(verdict.status))
        abandon();
    return verdict;
}

void Download::abandon()
{
    if (m_receiving)
        m_record.abandonFirmware();
    m_receiving = false;
    m_received = 0;
    m_sum = 0;
}

std::string_view Download::defect(const Request& piece) const
{
    if (piece.kind != blockKind::kPiece && !blockKind::isLast(piece.kind))
        return "unknown block kind";
    if (m_receiving && piece.name != m_name)
        return "the name changed within a firmware";
    if (m_receiving && piece.end != m_end)
        return "the end changed within a firmware";
    return orderDefect(piece);
}

std::string_view Download::orderDefect(const Request& piece) const
{
    const auto reached = std::uint64_t{piece.start} + piece.data.size();
    if (piece.start != m_received)
        return m_receiving ? "does not begin where the last piece ended"
                           : "a firmware does not begin at 0";
    if (reached > piece.end)
        return "runs past the end";
    if (blockKind::isLast(piece.kind) && reached != piece.end)
        return "the last block does not reach the end";
    if (piece.kind == blockKind::kPiece && piece.data.empty())
        return "a piece without data";
    return {};
}

// A last block without data has the sum of the whole file, every other block that of its own data.
bool Download::checksumIsRight(const Request& piece) const
{
    const bool whole = blockKind::isLast(piece.kind) && piece.data.empty();
    return piece.checksum == (whole ? m_sum : byteSum(piece.data));
}

bool Download::keep(const Request& piece)
{
    if (!m_receiving && !m_record.beginFirmware(piece.name))
        return false;
    m_receiving = true;
    m_name = piece.name;
    m_end = piece.end;
    if (!m_record.appendFirmware(piece.data))
        return false;
    m_received += static_cast<std::uint32_t>(piece.data.size());
    assert(m_received <= m_end); // a piece that runs past the end was refused
    m_sum = byteSum(piece.data, m_sum);
    if (!blockKind::isLast(piece.kind))
        return true;
    m_receiving = false;
    m_received = 0;
    m_sum = 0;
    if (!m_record.commitFirmware())
        return false;
    m_finished = {piece.name, piece.end};
    return true;
}

} // namespace vymprinter
