// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Replay.h"

#include <algorithm>
#include <cassert>

namespace vymprinter {
namespace {

constexpr std::size_t kShown = 32; // bytes around the first difference

std::string hexAround(ByteView bytes, std::size_t place)
{
    const auto begin = std::min(place - std::min(place, kShown / 2), bytes.size());
    const auto shown = bytes.subspan(begin, std::min(kShown, bytes.size() - begin));
    const auto text = sessionText(Millis(0), true, shown);
    return text.substr(4, text.size() - 5);
}

} // namespace

bool Replay::isUpdatersTurn() const
{
    return m_differs.empty() && !finished() && m_lines[m_next].fromUpdater;
}

void Replay::receive(ByteView bytes, Millis now)
{
    m_arrived.insert(m_arrived.end(), bytes.begin(), bytes.end());
    compare(now);
}

void Replay::compare(Millis now)
{
    while (isUpdatersTurn() && !m_arrived.empty()) {
        const auto& expected = m_lines[m_next];
        const auto count = std::min(m_arrived.size(), expected.bytes.size());
        const auto place = static_cast<std::size_t>(
            std::mismatch(m_arrived.begin(), m_arrived.begin() + static_cast<std::ptrdiff_t>(count),
                          expected.bytes.begin())
                .first
            - m_arrived.begin());
        if (place < count) {
            m_differs = "line " + std::to_string(expected.number) + ", byte "
                + std::to_string(place + 1) + ": the updater sent " + hexAround(m_arrived, place)
                + " instead of " + hexAround(expected.bytes, place);
            return;
        }
        if (count < expected.bytes.size())
            return;
        m_arrived.erase(m_arrived.begin(), m_arrived.begin() + static_cast<std::ptrdiff_t>(count));
        pass(now);
    }
    if (finished() && !m_arrived.empty() && m_differs.empty())
        m_differs = "the updater sent more after the last line";
}

void Replay::pass(Millis now)
{
    ++m_next;
    m_passedAt = now;
}

void Replay::inputEnded()
{
    if (isUpdatersTurn())
        m_differs = "line " + std::to_string(m_lines[m_next].number)
            + ": the updater ended the connection instead";
}

std::optional<Millis> Replay::nextDue() const
{
    if (!m_differs.empty() || finished() || m_lines[m_next].fromUpdater)
        return std::nullopt;
    const auto before = m_next == 0 ? Millis(0) : m_lines[m_next - 1].at;
    return m_passedAt + std::max(m_lines[m_next].at - before, Millis(0));
}

Bytes Replay::takeDue(Millis now)
{
    assert(nextDue().has_value());
    auto bytes = m_lines[m_next].bytes;
    pass(now);
    compare(now); // the bytes that the updater sent meanwhile
    return bytes;
}

} // namespace vymprinter
