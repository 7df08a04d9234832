// SPDX-License-Identifier: MIT
// A file of the printer, assembled from the blocks in which it arrives. The first block announces
// its size. Refuses a text larger than any printer has reason to send; a block without data, or
// with more than was announced, ends the reading.
//
// Owns:      the assembled bytes.
// Threads:   none of its own.
// Invariant: no byte outside the announced size is ever written.
#pragma once
#include "VYM/vymPackets.h"
#include "VYM/vymUtil.h"

#include <memory>
#include <span>

class FileAssembly {
public:
    enum class Step { more, complete, damaged, badBlock, tooLarge };

    // After the last block: complete if the sum of the whole file is right, otherwise damaged.
    Step add(const packets::FileBlock& block);
    [[nodiscard]] std::span<const unsigned char> bytes() const { return {m_bytes.get(), m_size}; }
    [[nodiscard]] bool isDamaged() const { return m_isDamaged; } // add has returned damaged

private:
    struct Free {
        void operator()(unsigned char* block) const { FreeMem(block); }
    };
    bool begin(std::uint32_t size);
    void copy(const packets::FileBlock& block);

    std::unique_ptr<unsigned char, Free> m_bytes;
    std::uint32_t m_size = 0;
    std::uint64_t m_received = 0; // data bytes of all blocks so far
    bool m_isDamaged = false;
};
