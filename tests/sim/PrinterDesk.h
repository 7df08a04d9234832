// SPDX-License-Identifier: MIT
// The model printer at the end of a link: reads as fast as it can, handles one packet after the
// other, and answers.
//
// Owns:    the bytes that it has read and not handled.
// Threads: one; its events refer to it.
#pragma once
#include "tests/sim/Link.h"
#include "tests/support/ModelPrinter.h"

namespace sim {

class PrinterDesk {
public:
    PrinterDesk(Link& link, ModelPrinter& printer, std::size_t readsAtOnce);

    void atTheEnd(); // counts the rest of an incomplete packet

private:
    void work();
    void react(const std::string& packet);

    Link& m_link;
    ModelPrinter& m_printer;
    std::size_t m_readsAtOnce;
    PacketAssembler m_line;
    bool m_busy = false;
    bool m_closed = false;
};

} // namespace sim
