// SPDX-License-Identifier: MIT
// Cuts the updater's byte stream into packets, however they were split or joined.
//
// Owns:      the bytes that were appended and not dropped yet; views are valid until the next
//            append() or drop().
// Threads:   none of its own; a PrinterSession embeds one.
// Invariant: m_head <= m_bytes.size(); bytes before m_head are spent.
// Reads no field but the header's length.
#pragma once
#include "Tools/vymprinter/PrinterWire.h"

namespace vymprinter {

class RequestBuffer {
public:
    // Packets longer than `longest` bytes are absurd: an updater that obeys MAXPACKET never sends
    // them.
    explicit RequestBuffer(std::size_t longest) : m_longest(longest) { }

    void append(ByteView bytes);
    // The arrived part of the packet at the front, never more than that packet.
    [[nodiscard]] ByteView front() const;
    [[nodiscard]] bool frontIsWhole() const;
    [[nodiscard]] bool frontIsAbsurd() const;
    // Removes the packet that front() returns, which must not be empty.
    void drop();
    void clear();

private:
    [[nodiscard]] ByteView rest() const { return ByteView(m_bytes).subspan(m_head); }
    // The length of the front packet according to its header, which must have arrived.
    [[nodiscard]] std::uint64_t announced() const;

    std::size_t m_longest;
    Bytes m_bytes;
    std::size_t m_head = 0;
};

} // namespace vymprinter
