// SPDX-License-Identifier: MIT
#include "CLI/Display.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TerminalScreen.h"

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

class Screen : public ::testing::Test, public TerminalScreen { };

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
