// SPDX-License-Identifier: MIT
#include "VYM/ImageReader.h"

#include "VYM/ProtocolResult.h"
#include "VYM/vymBindInfo.h"

#include <algorithm>
#include <cassert>
#include <exception>
#include <utility>

int ImageReader::open(const char* fileName, unsigned long pieceSize)
{
    assert(fileName != nullptr && pieceSize != 0);
    auto* container = vymBindInfo::Instance();
    // Refuses an incomplete package before a printer gets a part of it.
    if (!container->getBindFileSize(fileName, m_size) || !container->holdsEveryByte(fileName)
        || !container->getBindMngData(fileName, m_place, m_size) || !container->seal())
        return result::kFirmwareUnreadable;
    m_pieceSize = std::min(pieceSize, std::max(m_size, 1UL));
    try {
        m_taken.bytes.resize(packets::kFileHeadSize + m_pieceSize);
        m_ahead.bytes.resize(packets::kFileHeadSize + m_pieceSize);
    } catch (const std::exception&) {
        return result::kSystem;
    }
    return result::kSuccess;
}

void ImageReader::read(Piece& piece, unsigned long offset) const
{
    assert(offset < m_size && m_pieceSize != 0);
    piece.length = std::min(m_size - offset, m_pieceSize);
    auto* data = piece.bytes.data() + packets::kFileHeadSize;
    piece.isRead = vymBindInfo::Instance()->readSealed(m_place + offset, data, piece.length);
    piece.sum = packets::byteSum({data, piece.length});
}

bool ImageReader::next()
{
    assert(end() < m_size);
    m_offset = end();
    if (m_ahead.length == 0)
        read(m_ahead, m_offset);
    std::swap(m_taken, m_ahead);
    m_ahead.length = 0;
    return m_taken.isRead;
}

void ImageReader::run()
{
    if (m_ahead.length == 0 && m_taken.length != 0 && end() < m_size)
        read(m_ahead, end());
}

std::span<unsigned char> ImageReader::packet()
{
    assert(m_taken.bytes.size() >= packets::kFileHeadSize + m_taken.length);
    return {m_taken.bytes.data(), packets::kFileHeadSize + m_taken.length};
}
