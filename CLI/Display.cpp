#include "CLI/Display.h"

#include "CLI/ProgressText.h"
#include "CLI/Terminal.h"

#include <algorithm>

namespace {

// Back to where the live line began, then clear all that is shown of it: a terminal that became
// narrower has broken it into several.
std::string erase(std::size_t liveColumns, std::size_t columns)
{
    const auto rows = liveColumns != 0 ? (liveColumns - 1) / std::max<std::size_t>(columns, 1) : 0;
    return (rows != 0 ? "\x1b[" + std::to_string(rows) + "A" : "") + "\r\x1b[J";
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
    const auto width = columns();
    const auto shown = fitColumns(text, width > kFreeColumns ? width - kFreeColumns : 0);
    m_output.writeProgress(erase(m_liveColumns, width).append(shown));
    m_liveColumns = std::max<std::size_t>(columnsNeeded(shown), 1);
}

void Display::clearLive()
{
    const HoldLock hold(m_lock);
    eraseLive();
}

void Display::drain()
{
    const HoldLock hold(m_lock);
    m_output.drain();
}

void Display::eraseLive()
{
    if (m_liveColumns != 0)
        m_output.write(erase(m_liveColumns, columns()));
    m_liveColumns = 0;
}
