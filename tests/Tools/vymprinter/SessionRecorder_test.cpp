// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/SessionRecorder.h"
#include "tests/Tools/vymprinter/program.h"

using namespace vymprinter;

namespace {

ParsedSession recorded(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return parseSession(std::string(std::istreambuf_iterator<char>(file), {}));
}

const Bytes kPacket{0, 0, 0x51, 1, 0, 0, 0, 2, 7, 8}; // a header that announces two bytes

TEST(VymprinterSessionRecorder, PacketsAreLinesHoweverTheyArrive)
{
    const Folder folder;
    SessionRecorder recorder(folder.path / "session");
    recorder.note(true, ByteView(kPacket).first(3), Millis(1000));
    recorder.note(true, ByteView(kPacket).subspan(3), Millis(1020));
    auto two = kPacket;
    two.insert(two.end(), kPacket.begin(), kPacket.end());
    recorder.note(false, two, Millis(1030));
    const auto parsed = recorded(folder.path / "session");
    ASSERT_EQ(parsed.lines.size(), 3U);
    EXPECT_TRUE(parsed.lines[0].fromUpdater);
    EXPECT_EQ(parsed.lines[0].bytes, kPacket);
    EXPECT_EQ(parsed.lines[1].at, Millis(30)); // from the first byte of all
    EXPECT_EQ(parsed.lines[2].bytes, kPacket);
    EXPECT_TRUE(recorder.good());
}

TEST(VymprinterSessionRecorder, AnIncompletePacketIsTheLastLine)
{
    const Folder folder;
    {
        SessionRecorder recorder(folder.path / "session");
        recorder.note(true, ByteView(kPacket).first(9), Millis(5));
    }
    const auto parsed = recorded(folder.path / "session");
    ASSERT_EQ(parsed.lines.size(), 1U);
    EXPECT_EQ(parsed.lines[0].bytes.size(), 9U);
}

TEST(VymprinterSessionRecorder, OnlyTheFirstConnectionMayClaimIt)
{
    const Folder folder;
    SessionRecorder recorder(folder.path / "session");
    EXPECT_TRUE(recorder.claim());
    EXPECT_FALSE(recorder.claim());
}

TEST(VymprinterSessionRecorder, AFileThatCannotBeWrittenIsNoticed)
{
    EXPECT_FALSE(SessionRecorder("/no/such/folder/session").good());
}

} // namespace
