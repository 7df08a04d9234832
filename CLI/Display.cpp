#include "CLI/Display.h"

#include "CLI/Terminal.h"

namespace {

// Back to the first column, then clear the line.
constexpr std::string_view kErase = "\r\x1b[K";

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
    // The last column stays free, or the terminal would go on to the next line.
    m_output.writeProgress(std::string(kErase).append(fitColumns(text, columns() - 1)));
    m_liveShown = true;
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
    if (m_liveShown)
        m_output.write(kErase);
    m_liveShown = false;
}
