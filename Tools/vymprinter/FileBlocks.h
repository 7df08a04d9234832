// SPDX-License-Identifier: MIT
// Sends the printer's "TargetInfo.txt": makes one block after the other, on request.
//
// Owns:      the text and the position up to which it has been sent.
// Threads:   none of its own; a PrinterSession embeds one.
// Invariant: no block exceeds the given limit; without faults every block but the last has data.
#pragma once
#include "Tools/vymprinter/Faults.h"
#include "Tools/vymprinter/PrinterWire.h"

namespace vymprinter {

// The text as changed by the faults.
[[nodiscard]] std::string faultyTargetInfo(std::string text, const FaultSet& faults,
                                           const std::string& maxPacket);

class FileBlocks {
public:
    // `limit` is the longest reply, including its head; at least kSmallestBlock.
    FileBlocks(std::string text, std::size_t limit, const FaultSet& faults);

    [[nodiscard]] bool done() const { return m_done; }
    // The next block; its data is a view into this object. Must not be called when done().
    FileBlock next();

private:
    [[nodiscard]] bool endless() const;
    void spoil(FileBlock& block) const;

    std::string m_text;
    std::size_t m_room; // for data in a block
    FaultSet m_faults;
    std::uint32_t m_offset = 0; // wraps in an endless file
    bool m_done = false;
};

} // namespace vymprinter
