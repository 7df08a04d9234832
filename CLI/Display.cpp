// SPDX-License-Identifier: MIT
#include "CLI/Display.h"

#include "CLI/ProgressText.h"
#include "CLI/Terminal.h"

#include <algorithm>

namespace {

constexpr std::size_t kFreeRows = 1; // for the line that ends above the live ones

// The further rows that a line of so many columns takes: a terminal that became narrower has
// broken it into several.
std::size_t furtherRows(std::size_t lineColumns, std::size_t columns)
{
    return lineColumns != 0 ? (lineColumns - 1) / std::max<std::size_t>(columns, 1) : 0;
}

} // namespace

Display::Display(int descriptor, bool refuseColours)
    : m_descriptor(descriptor), m_canRedraw(canRedraw(descriptor)),
      m_canColour(canColour(descriptor, refuseColours)), m_output(descriptor)
{
}

std::size_t Display::columns() const
{
    return columnsOf(m_descriptor);
}

std::size_t Display::textColumns() const
{
    return textColumnsOf(m_descriptor);
}

void Display::line(std::string_view text)
{
    const HoldLock hold(m_lock);
    eraseLive();
    m_output.write(std::string(text) + "\n");
}

void Display::prompt(std::string_view text)
{
    const HoldLock hold(m_lock);
    eraseLive();
    m_output.write(text);
}

void Display::live(std::string_view text)
{
    const HoldLock hold(m_lock);
    if (!m_canRedraw)
        return;
    showLive({std::string(text)});
}

void Display::liveLines(std::vector<std::string> lines, std::string last)
{
    const HoldLock hold(m_lock);
    if (!m_canRedraw)
        return;
    const auto rows = rowsOf(m_descriptor);
    const auto room = rows > kFreeRows + 1 ? rows - kFreeRows - 1 : 0;
    if (lines.size() > room)
        lines.resize(room); // the last line counts the others
    lines.push_back(std::move(last));
    showLive(lines);
}

void Display::showLive(const std::vector<std::string>& lines)
{
    const auto width = columns();
    auto text = erased();
    std::vector<std::size_t> needed;
    for (const auto& line : lines) {
        const auto shown = fitColumns(line, width > kFreeColumns ? width - kFreeColumns : 0);
        text.append(needed.empty() ? "" : "\n").append(shown);
        needed.push_back(std::max<std::size_t>(columnsNeeded(shown), 1));
    }
    m_output.writeProgress(text);
    m_liveColumns = std::move(needed);
}

void Display::clearLive()
{
    const HoldLock hold(m_lock);
    eraseLive();
}

void Display::last(std::string_view text)
{
    const HoldLock hold(m_lock);
    m_output.writeLast(text);
}

void Display::drain()
{
    const HoldLock hold(m_lock);
    m_output.drain();
}

void Display::eraseLive()
{
    if (!m_liveColumns.empty())
        m_output.write(erased());
    m_liveColumns.clear();
}

// Back to where the first live line began, then clear all that is shown of them.
std::string Display::erased() const
{
    const auto width = columns();
    auto rows = m_liveColumns.empty() ? 0 : m_liveColumns.size() - 1;
    for (const auto each : m_liveColumns)
        rows += furtherRows(each, width);
    return (rows != 0 ? "\x1b[" + std::to_string(rows) + "A" : "") + "\r\x1b[J";
}
