// SPDX-License-Identifier: MIT
#include "CLI/Display.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// A terminal and the text written to it.
class Screen : public ::testing::Test {
protected:
    Screen()
    {
        setenv("TERM", "xterm", 1);
        m_person = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        EXPECT_EQ(grantpt(m_person), 0);
        EXPECT_EQ(unlockpt(m_person), 0);
        program = open(ptsname(m_person), O_RDWR | O_NOCTTY | O_CLOEXEC);
        resize(80);
    }
    ~Screen() override
    {
        close(program);
        close(m_person);
    }
    void resize(unsigned short columns) const
    {
        winsize size{};
        size.ws_row = 24;
        size.ws_col = columns;
        EXPECT_EQ(ioctl(m_person, TIOCSWINSZ, &size), 0);
    }
    // A mark follows the text, since the kernel may hand over one write in several parts.
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
    int program = -1;

private:
    int m_person = -1;
};

} // namespace

TEST_F(Screen, RedrawsItsLiveLineInPlace)
{
    Display display(program, true);
    ASSERT_TRUE(display.hasLiveLine());
    display.live("one");
    display.live("two");
    display.line("done");
    EXPECT_EQ(shown(), "\r\x1b[Jone\r\x1b[Jtwo\r\x1b[Jdone\r\n");
}

TEST_F(Screen, LeavesRoomForWhatTheTerminalEchoes)
{
    resize(10);
    Display display(program, true);
    display.live("123456789");
    EXPECT_EQ(shown(), "\r\x1b[J1234567");
}

TEST_F(Screen, ClearsALiveLineThatANarrowerTerminalHasBroken)
{
    Display display(program, true);
    display.live(std::string(50, 'x'));
    static_cast<void>(shown());
    resize(20); // it takes three rows now
    display.line("done");
    EXPECT_EQ(shown(), "\x1b[2A\r\x1b[Jdone\r\n");
}

TEST_F(Screen, RedrawsSeveralLiveLinesInPlace)
{
    Display display(program, true);
    display.liveLines({"a", "b"}, "two run");
    display.liveLines({"b"}, "one runs");
    display.line("done");
    EXPECT_EQ(shown(),
              "\r\x1b[Ja\r\nb\r\ntwo run"
              "\x1b[2A\r\x1b[Jb\r\none runs"
              "\x1b[1A\r\x1b[Jdone\r\n");
}

TEST_F(Screen, ShowsAsManyLiveLinesAsThereIsRoomForAndAlwaysTheLast)
{
    Display display(program, true);
    display.liveLines(std::vector<std::string>(100, "x"), "last");
    const auto text = shown();
    EXPECT_EQ(std::count(text.begin(), text.end(), 'x'), 22); // of 24 rows
    EXPECT_TRUE(text.ends_with("x\r\nlast"));
}

TEST(Display, HasNoLiveLineInAFile)
{
    TempFolder folder;
    folder.write("out", "");
    const int file = open((folder / "out").c_str(), O_WRONLY | O_CLOEXEC);
    {
        Display display(file, false);
        EXPECT_FALSE(display.hasLiveLine());
        EXPECT_FALSE(display.hasColours());
        display.live("never");
        display.liveLines({"never"}, "ever");
        display.prompt("asked? ");
        display.line("told");
        display.drain();
    }
    close(file);
    EXPECT_EQ(readFile(folder / "out"), "asked? told\n");
}
