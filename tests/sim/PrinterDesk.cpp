// SPDX-License-Identifier: MIT
#include "tests/sim/PrinterDesk.h"

namespace sim {

PrinterDesk::PrinterDesk(Link& link, ModelPrinter& printer, std::size_t readsAtOnce)
    : m_link(link), m_printer(printer), m_readsAtOnce(readsAtOnce)
{
    m_link.onAccept = [this] { m_link.printerSend(m_printer.manners().unasked); };
    m_link.onChange = [this] { work(); };
}

// Works until it is busy or has no more packets.
void PrinterDesk::work()
{
    while (!m_busy && !m_closed && !m_link.printerIsCut()) {
        if (const auto packet = m_line.next()) {
            react(*packet);
        } else if (m_link.printerUnread() != 0) {
            m_line.add(m_link.printerRead(m_readsAtOnce));
        } else {
            if (m_link.printerSeesEnd()) {
                m_closed = true;
                m_link.printerClose();
            }
            return;
        }
    }
}

void PrinterDesk::react(const std::string& packet)
{
    const auto reaction = m_printer.take(packet);
    auto& world = World::current();
    if (const auto piece = FilePacketView::of(packet); piece && world.traced())
        world.trace("printer  takes %s %s at %u, busy for %u ms", piece->name.c_str(),
                    piece->last() ? "last block" : "piece", piece->start, reaction.busyMs);
    else
        world.trace("printer  takes command 0x%04X, busy for %u ms", reaction.command,
                    reaction.busyMs);
    m_busy = true;
    world.in(reaction.busyMs * kMilli, [this, reaction] {
        m_busy = false;
        if (m_link.printerIsCut())
            return;
        if (!reaction.answer.empty() && m_link.printerSend(reaction.answer)) {
            World::current().trace("printer  answers 0x%04X%s", reaction.command,
                                   reaction.last ? ", the last block" : "");
            m_printer.gave(reaction);
        }
        work();
    });
}

void PrinterDesk::atTheEnd()
{
    m_printer.lost(m_line.rest());
}

} // namespace sim
