// Cuts the stream of bytes from an updater into packets, however they were split or run together.
//
// Owns:      the bytes that arrived and were not dropped yet; views are valid until the next
//            append() or drop().
// Threads:   none of its own; a PrinterSession embeds one.
// Invariant: m_head <= m_bytes.size(); bytes before m_head are spent.
// Does not look beyond the header's length field.
#pragma once
#include "Tools/vymprinter/PrinterWire.h"

namespace vymprinter {

class RequestBuffer {
public:
    // Packets longer than `longest` bytes are absurd: no updater that obeys MAXPACKET sends them.
    explicit RequestBuffer(std::size_t longest) : m_longest(longest) { }

    void append(ByteView bytes);
    // The packet at the front as far as it has arrived, never more than that packet.
    [[nodiscard]] ByteView front() const;
    [[nodiscard]] bool frontIsWhole() const;
    [[nodiscard]] bool frontIsAbsurd() const;
    // Takes the packet that front() shows off the front.
    void drop();
    void clear();

private:
    [[nodiscard]] ByteView rest() const { return ByteView(m_bytes).subspan(m_head); }
    // The whole length that the front packet's header announces; needs the header.
    [[nodiscard]] std::uint64_t announced() const;

    std::size_t m_longest;
    Bytes m_bytes;
    std::size_t m_head = 0;
};

} // namespace vymprinter
