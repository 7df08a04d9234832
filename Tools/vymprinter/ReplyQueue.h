// SPDX-License-Identifier: MIT
// The data that a printer still has to send on one connection, each part with the time at which it
// leaves. The end of the connection waits in the same queue, after earlier replies.
//
// Owns:      the bytes.
// Threads:   none of its own; a PrinterSession embeds one.
// Invariant: nothing overtakes: an entry is due no earlier than the one before it.
#pragma once
#include "Tools/vymprinter/PrinterModel.h"
#include "Tools/vymprinter/PrinterWire.h"

#include <cassert>
#include <deque>

namespace vymprinter {

// The ends of a link. Halting a pipe is for carriers with pipes.
enum class LinkEnd { none, close, reset, haltIn, haltOut };

struct Outgoing {
    Millis due{0};
    Bytes bytes;
    LinkEnd end = LinkEnd::none; // other than none: `bytes` is empty and the connection ends here
};

class ReplyQueue {
public:
    void push(Outgoing part);
    void clear(); // drops data that has not left
    [[nodiscard]] bool empty() const { return m_parts.empty(); }
    // Whether to make no more replies until some of these have left.
    [[nodiscard]] bool full() const;
    // The first part; must not be called on an empty queue.
    [[nodiscard]] const Outgoing& front() const
    {
        assert(!m_parts.empty());
        return m_parts.front();
    }
    // The first `count` bytes of the first part have left.
    void sent(std::size_t count);
    // The bytes of the first part that have not left yet.
    [[nodiscard]] ByteView unsent() const { return ByteView(front().bytes).subspan(m_sent); }

private:
    std::deque<Outgoing> m_parts;
    std::size_t m_bytes = 0;
    std::size_t m_sent = 0; // of the first part
};

} // namespace vymprinter
