// SPDX-License-Identifier: MIT
// A terminal of 24 rows and 80 columns, and the text that is written to it.
//
// Owns both ends until its own end. Threads: that of the test.
#pragma once
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

class TerminalScreen {
public:
    TerminalScreen()
    {
        setenv("TERM", "xterm", 1);
        m_person = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        EXPECT_EQ(grantpt(m_person), 0);
        EXPECT_EQ(unlockpt(m_person), 0);
        program = open(ptsname(m_person), O_RDWR | O_NOCTTY | O_CLOEXEC);
        resize(80);
    }
    ~TerminalScreen()
    {
        close(program);
        close(m_person);
    }
    TerminalScreen(const TerminalScreen&) = delete;
    TerminalScreen& operator=(const TerminalScreen&) = delete;

    void resize(unsigned short columns) const
    {
        winsize size{};
        size.ws_row = 24;
        size.ws_col = columns;
        EXPECT_EQ(ioctl(m_person, TIOCSWINSZ, &size), 0);
    }
    // All text since the last call. A mark follows it, since the kernel may hand over one write in
    // several parts.
    [[nodiscard]] std::string shown() const
    {
        constexpr std::string_view kMark = "<mark>";
        EXPECT_EQ(write(program, kMark.data(), kMark.size()), ssize(kMark));
        std::string text;
        while (!text.ends_with(kMark)) {
            std::array<char, 4096> part{};
            const auto length = read(m_person, part.data(), part.size());
            if (length <= 0) {
                ADD_FAILURE() << "the terminal has ended after: " << text;
                return text;
            }
            text.append(part.data(), static_cast<std::size_t>(length));
        }
        return text.substr(0, text.size() - kMark.size());
    }

    int program = -1; // the program's end

private:
    int m_person = -1;
};
