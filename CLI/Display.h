// The error stream as a person sees it: whole lines, and below them at most one live line that is
// redrawn in place.
//
// Owns:      its output stream.
// Threads:   any; one lock is held for the whole of each call.
// Invariant: a whole line never stands in the middle of the live line.
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
    // Asked anew each time: windows change their size.
    [[nodiscard]] std::size_t columns() const;
    [[nodiscard]] std::size_t textColumns() const;

    void line(std::string_view text);
    void prompt(std::string_view text); // without a line end
    void live(std::string_view text); // only where there is a live line
    void clearLive();
    void drain();

private:
    void eraseLive() VYM_REQUIRES(m_lock);

    const int m_descriptor;
    const bool m_canRedraw;
    const bool m_canColour;
    CRITSECT m_lock;
    Output m_output VYM_GUARDED_BY(m_lock);
    bool m_liveShown VYM_GUARDED_BY(m_lock) = false;
};
