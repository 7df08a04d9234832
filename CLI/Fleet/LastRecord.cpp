// SPDX-License-Identifier: MIT
#include "CLI/Fleet/LastRecord.h"

#include "CLI/Fleet/MemberEnd.h"

void LastRecord::prepare(const std::optional<MemberOrder>& order)
{
    if (!order || !order->results)
        return;
    m_file.emplace(*order->results);
    m_printer = printerKey(order->printer);
}

void LastRecord::write(const LastFacts& facts) noexcept
{
    if (!m_file)
        return;
    auto inJson = facts;
    inJson.json = true;
    LastText room;
    auto line = lastLine(inJson, room);
    line.remove_suffix(line.ends_with('\n') ? 1 : 0);
    const auto comma = line.find(',');
    // A line that cannot be written is one that was never known: a later call repeats the printer.
    static_cast<void>(m_file->appendParts({line.substr(0, comma), m_printer, line.substr(comma)}));
    done();
}
