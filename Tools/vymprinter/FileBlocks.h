// The printer's "TargetInfo.txt" on its way out: one block after the other, made when asked for.
//
// Owns:      the text and how far it has been handed out.
// Threads:   none of its own; a PrinterSession embeds one.
// Invariant: no block is longer than the limit given; every block of a fault-free file but the
//            last carries data.
#pragma once
#include "Tools/vymprinter/Faults.h"
#include "Tools/vymprinter/PrinterWire.h"

namespace vymprinter {

// The text as the faults let the updater see it.
[[nodiscard]] std::string faultyTargetInfo(std::string text, const FaultSet& faults,
                                           const std::string& maxPacket);

class FileBlocks {
public:
    // `limit` is the longest reply, its head included; at least kSmallestBlock.
    FileBlocks(std::string text, std::size_t limit, const FaultSet& faults);

    [[nodiscard]] bool done() const { return m_done; }
    // The next block; its data is a view into this object. Asked only while not done().
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
