// The pieces of one firmware image, in order. Each has room for its packet's head in front of it,
// so that head and piece leave in one write without a copy; and the next one is read and summed
// while the printer takes the one before.
//
// Owns:      two pieces and the room in front of them.
// Threads:   the update worker's; the reading ahead happens inside its exchanges.
// Invariant: no byte is given out that was not really read from the container, or that is not the
//            one that stood there when the container was sealed.
#pragma once
#include "DevConn/ReplyExchange.h"
#include "VYM/vymPackets.h"

#include <vector>

class ImageReader : public IdleWork {
public:
    // fileName: in the container; pieceSize: at least 1. A result code: kSystem out of memory,
    // kFirmwareUnreadable where the container does not hold all of the image.
    int open(const char* fileName, unsigned long pieceSize);

    // Takes the next piece, which is packet() from its 60th byte on. False where it cannot be read
    // or has changed since the container was sealed. Only while end() < size().
    bool next();
    // Reads the piece after the one taken, where there is one.
    void run() override;

    [[nodiscard]] unsigned long size() const { return m_size; }
    [[nodiscard]] unsigned long offset() const { return m_offset; } // of the piece taken
    [[nodiscard]] unsigned long end() const { return m_offset + m_taken.length; }
    [[nodiscard]] std::uint16_t sum() const { return m_taken.sum; }
    // Head and piece; the head is the caller's to fill.
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
