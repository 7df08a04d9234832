// SPDX-License-Identifier: MIT
// The error stream for people: whole lines, and below them live lines, usually one, which are
// redrawn in place.
//
// Owns:      its output stream.
// Threads:   any; each call holds one lock throughout.
// Invariant: a whole line never appears inside a live line.
#pragma once
#include "CLI/Output.h"
#include "VYM/vymLock.h"

#include <string>
#include <string_view>
#include <vector>

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
    // The same for several lines, as many as the screen has room for, with the last below them.
    void liveLines(std::vector<std::string> lines, std::string last);
    void clearLive();
    void drain();
    void last(std::string_view text); // with its line end; see Output::writeLast

private:
    void showLive(const std::vector<std::string>& lines) VYM_REQUIRES(m_lock);
    void eraseLive() VYM_REQUIRES(m_lock);
    [[nodiscard]] std::string erased() const VYM_REQUIRES(m_lock);

    const int m_descriptor;
    const bool m_canRedraw;
    const bool m_canColour;
    CRITSECT m_lock;
    Output m_output VYM_GUARDED_BY(m_lock);
    // Of each live line; empty: none is shown.
    std::vector<std::size_t> m_liveColumns VYM_GUARDED_BY(m_lock);
};
