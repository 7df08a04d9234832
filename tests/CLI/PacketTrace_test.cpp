// SPDX-License-Identifier: MIT
#include "CLI/PacketTrace.h"
#include "tests/support/TempFolder.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::HasSubstr;

namespace {

constexpr std::array<unsigned char, 12> kReply = {0, 0, 0x51, 0x01, 0, 0, 0, 4, 0, 0, 0, 0x80};

// A program's trace, with its lines in a file.
class Trace : public ::testing::Test {
protected:
    Trace()
    {
        folder.write("shown", "");
        descriptor = open((folder / "shown").c_str(), O_WRONLY | O_CLOEXEC);
        display.emplace(descriptor, true);
        trace.emplace(&*display, [] { return 1.5; });
    }
    ~Trace() override
    {
        trace.reset();
        display.reset();
        close(descriptor);
    }
    TempFolder folder;
    int descriptor = -1;
    std::optional<Display> display;
    std::optional<PacketTrace> trace;
};

} // namespace

TEST_F(Trace, ShowsALineForEachPacket)
{
    trace->sent(kReply, 0);
    trace->received(kReply);
    trace->connected("192.0.2.7", 9100, ConnectProblem::refused, ECONNREFUSED);
    EXPECT_EQ(readFile(folder / "shown"),
              "    1.500 -> enter-download, 12 bytes\n"
              "    1.500 <- enter-download, status 0x0080, 12 bytes\n"
              "    1.500 connect 192.0.2.7 port 9100: Connection refused\n");
}

TEST_F(Trace, WritesTheBytesIntoAFile)
{
    EXPECT_EQ(trace->openFile(folder / "trace"), "");
    trace->received(kReply);
    EXPECT_EQ(readFile(folder / "trace"),
              "    1.500 <- enter-download, status 0x0080, 12 bytes\n"
              "    00 00 51 01 00 00 00 04 00 00 00 80\n");
    EXPECT_THAT(trace->openFile(folder / "no/trace"), HasSubstr("No such file"));
}

TEST_F(Trace, KnowsWhyTheLastConnectionWasNotMade)
{
    EXPECT_EQ(trace->lastConnect(), std::nullopt);
    EXPECT_EQ(linkTrace(), &*trace);
    trace->connected("a", 1, ConnectProblem::noRoute, EHOSTUNREACH);
    EXPECT_EQ(trace->lastConnect(), ConnectProblem::noRoute);
    trace->connected("a", 1, ConnectProblem::none, 0);
    EXPECT_EQ(trace->lastConnect(), ConnectProblem::none);
    trace.reset();
    EXPECT_EQ(linkTrace(), nullptr);
}

TEST_F(Trace, KnowsWhetherTheLastPacketWasAnswered)
{
    constexpr std::array<unsigned char, 12> kExit = {0, 0, 0x51, 0x02, 0, 0, 0, 4, 0, 0, 0, 0x80};
    EXPECT_EQ(trace->isAnswered(), std::nullopt);
    trace->sent(kReply, 0);
    EXPECT_EQ(trace->isAnswered(), false);
    trace->received(kReply);
    EXPECT_EQ(trace->isAnswered(), true);
    trace->sent(kReply, 0);
    trace->sent(kExit, 0); // goes out after every failure
    trace->received(kExit);
    EXPECT_EQ(trace->isAnswered(), false);
    trace->connected("a", 1, ConnectProblem::none, 0);
    EXPECT_EQ(trace->isAnswered(), std::nullopt);
}

TEST(PacketTraceLines, ShowPacketsOfAnyKindAndLength)
{
    EXPECT_EQ(sentLine({}, -12), "-> no header, 0 bytes, failed with -12");
    const std::array<unsigned char, 8> other = {0, 0, 0x12, 0x34, 0, 0, 0, 0};
    EXPECT_EQ(receivedLine(other), "<- command 0x1234, 8 bytes");
    for (const auto& [code, name] : {std::pair{0x01, "get-file"}, std::pair{0x02, "send-file"}}) {
        const std::array<unsigned char, 8> packet = {0, 0, 0x50, static_cast<unsigned char>(code)};
        EXPECT_EQ(sentLine(packet, 0), "-> " + std::string(name) + ", 8 bytes");
    }
    EXPECT_EQ(connectLine("\x1b[2J", 0, ConnectProblem::unknownHost, 0),
              "connect \\x1b[2J: the host is unknown");
    EXPECT_EQ(connectLine(nullptr, 0, ConnectProblem::other, 0), "connect : no connection");
}
