// The error stream for people: whole lines, and below them at most one live line, which is redrawn
// in place.
//
// Owns:      its output stream.
// Threads:   any; each call holds one lock throughout.
// Invariant: a whole line never appears inside the live line.
#pragma once
#include "CLI/Output.h"
#include "VYM/vymLock.h"

#include <string>
#include <string_view>

class Display {
public:
    Display(int descriptor, bool refuseColours);

    [[nodiscard]] bool hasLiveLine() const { return m_canRedraw; }
    [[nodiscard]] bool hasColours() const { return m_canColour; }
    // Queried each time, since windows change their size.
    [[nodiscard]] std::size_t columns() const;
    [[nodiscard]] std::size_t textColumns() const;

    void line(std::string_view text);
    void prompt(std::string_view text); // without a line end
    void live(std::string_view text); // only if the stream supports a live line
    void clearLive();
    void drain();

private:
    void eraseLive() VYM_REQUIRES(m_lock);

    const int m_descriptor;
    const bool m_canRedraw;
    const bool m_canColour;
    CRITSECT m_lock;
    Output m_output VYM_GUARDED_BY(m_lock);
    std::size_t m_liveColumns VYM_GUARDED_BY(m_lock) = 0; // of the live line; 0: none is shown
};
