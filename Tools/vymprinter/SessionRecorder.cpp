// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/SessionRecorder.h"

#include <utility>

namespace vymprinter {

SessionRecorder::SessionRecorder(const std::string& path)
    : m_file(path, std::ios::binary | std::ios::trunc)
{
    m_file << "# milliseconds, > from the updater or < from the printer, bytes\n" << std::flush;
}

SessionRecorder::~SessionRecorder()
{
    for (auto* side : {&m_updater, &m_printer}) {
        if (!side->waiting.front().empty())
            writeFront(side == &m_updater, *side);
    }
}

bool SessionRecorder::claim()
{
    return !std::exchange(m_claimed, true);
}

void SessionRecorder::note(bool fromUpdater, ByteView bytes, Millis now)
{
    if (bytes.empty())
        return;
    if (!m_start)
        m_start = now;
    auto& side = fromUpdater ? m_updater : m_printer;
    side.since = now - *m_start;
    side.waiting.append(bytes);
    writeWhole(fromUpdater, side);
}

void SessionRecorder::writeWhole(bool fromUpdater, Side& side)
{
    while (side.waiting.frontIsWhole() || side.waiting.frontIsAbsurd())
        writeFront(fromUpdater, side);
    m_file.flush();
}

void SessionRecorder::writeFront(bool fromUpdater, Side& side)
{
    m_file << sessionText(side.since, fromUpdater, side.waiting.front());
    side.waiting.drop();
}

} // namespace vymprinter
