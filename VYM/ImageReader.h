// SPDX-License-Identifier: MIT
// Reads the pieces of one firmware image, in order. Each has room for its packet's head in front of
// it, so that head and piece leave in one write without a copy; the next piece is read and summed
// while the printer receives the previous one.
//
// Owns:      two pieces and the room in front of them.
// Threads:   the update worker's; the reading ahead happens inside its exchanges.
// Invariant: gives only bytes that were read from the container and have not changed since it was
//            sealed.
#pragma once
#include "DevConn/ReplyExchange.h"
#include "VYM/vymPackets.h"

#include <vector>

class ImageReader : public IdleWork {
public:
    // fileName: in the container; pieceSize: at least 1. Returns kSystem if out of memory,
    // kFirmwareUnreadable if the container does not have the whole image.
    int open(const char* fileName, unsigned long pieceSize);

    // Takes the next piece, which is packet() from its 60th byte on. False if it cannot be read or
    // has changed since the container was sealed. Only while end() < size().
    bool next();
    // Reads the piece after the one taken, if there is one.
    void run() override;

    [[nodiscard]] unsigned long size() const { return m_size; }
    [[nodiscard]] unsigned long offset() const { return m_offset; } // of the current piece
    [[nodiscard]] unsigned long end() const { return m_offset + m_taken.length; }
    [[nodiscard]] std::uint16_t sum() const { return m_taken.sum; }
    // Head and piece; the caller fills in the head.
    [[nodiscard]] std::span<unsigned char> packet();

private:
    struct Piece {
        std::vector<unsigned char> bytes; // the head's room first
        unsigned long length = 0; // of the piece
        std::uint16_t sum = 0;
        bool isRead = false;
    };
    void read(Piece& piece, unsigned long offset) const;

    unsigned long m_place = 0; // of the image's first byte in the container
    unsigned long m_size = 0;
    unsigned long m_pieceSize = 0;
    unsigned long m_offset = 0;
    Piece m_taken;
    Piece m_ahead;
};
