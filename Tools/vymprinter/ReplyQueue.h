// What a printer has yet to send on one connection, each part with the time at which it leaves.
// The end of the connection waits in the same line, behind the replies that go before it.
//
// Owns:      the bytes.
// Threads:   none of its own; a PrinterSession embeds one.
// Invariant: nothing overtakes: an entry is due no earlier than the one before it.
#pragma once
#include "Tools/vymprinter/PrinterModel.h"
#include "Tools/vymprinter/PrinterWire.h"

#include <deque>

namespace vymprinter {

// How a link ends. Halting a pipe is for a carrier that has pipes.
enum class LinkEnd { none, close, reset, haltIn, haltOut };

struct Outgoing {
    Millis due{0};
    Bytes bytes;
    LinkEnd end = LinkEnd::none; // other than none: `bytes` is empty and the connection ends here
};

class ReplyQueue {
public:
    void push(Outgoing part);
    void clear(); // what has not left is lost
    [[nodiscard]] bool empty() const { return m_parts.empty(); }
    // Whether no more replies should be made before some of these have left.
    [[nodiscard]] bool full() const;
    // The part that is first in line; asked only when there is one.
    [[nodiscard]] const Outgoing& front() const { return m_parts.front(); }
    // The first `count` bytes of the part in line have left.
    void sent(std::size_t count);
    // The bytes of the part in line that have not left yet.
    [[nodiscard]] ByteView unsent() const { return ByteView(front().bytes).subspan(m_sent); }

private:
    std::deque<Outgoing> m_parts;
    std::size_t m_bytes = 0;
    std::size_t m_sent = 0; // of the part in line
};

} // namespace vymprinter
