// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Replay.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

// The updater sends 0102, the printer answers 03 after 50 ms, the updater sends 04.
Replay conversation()
{
    return Replay(parseSession("10 > 0102\n60 < 03\n70 > 04\n").lines);
}

TEST(VymprinterReplay, AnswersAfterTheRecordedTime)
{
    auto replay = conversation();
    EXPECT_FALSE(replay.nextDue());
    replay.receive(Bytes{1}, Millis(1000));
    EXPECT_FALSE(replay.nextDue());
    replay.receive(Bytes{2}, Millis(1100));
    EXPECT_EQ(replay.nextDue(), Millis(1150));
    EXPECT_EQ(replay.takeDue(Millis(1150)), Bytes{3});
    replay.receive(Bytes{4}, Millis(1200));
    EXPECT_TRUE(replay.finished());
    replay.inputEnded();
    EXPECT_EQ(replay.differs(), "");
}

TEST(VymprinterReplay, BytesThatAreEarlyWaitForTheirTurn)
{
    auto replay = conversation();
    replay.receive(Bytes{1, 2, 4}, Millis(0));
    EXPECT_FALSE(replay.finished());
    EXPECT_EQ(replay.takeDue(Millis(50)), Bytes{3});
    EXPECT_TRUE(replay.finished());
}

TEST(VymprinterReplay, AnotherByteIsNamedWithItsLineAndEndsTheAnswers)
{
    auto replay = conversation();
    replay.receive(Bytes{1, 9}, Millis(0));
    EXPECT_THAT(replay.differs(),
                HasSubstr("line 1, byte 2: the updater sent 0109 instead of 0102"));
    EXPECT_FALSE(replay.nextDue());
}

TEST(VymprinterReplay, MoreBytesThanRecordedAreADifference)
{
    auto replay = conversation();
    replay.receive(Bytes{1, 2}, Millis(0));
    static_cast<void>(replay.takeDue(Millis(50)));
    replay.receive(Bytes{4, 5}, Millis(60));
    EXPECT_EQ(replay.differs(), "the updater sent more after the last line");
}

TEST(VymprinterReplay, AnUpdaterThatEndsInItsTurnIsADifference)
{
    auto replay = conversation();
    replay.receive(Bytes{1}, Millis(0));
    replay.inputEnded();
    EXPECT_EQ(replay.differs(), "line 1: the updater ended the connection instead");
}

} // namespace
