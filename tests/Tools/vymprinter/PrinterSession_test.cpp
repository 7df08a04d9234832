// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterSession.h"
#include "tests/Tools/vymprinter/desk.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterSession, UpdateFromEnterToExitIsAnsweredByteForByte)
{
    Desk desk;
    const auto file = requests::firmware(300);
    EXPECT_EQ(desk.send(requests::enter()), simple(0x5101, 128));
    for (const auto& piece : requests::pieces(file, 128)) {
        const bool last = piece.size() == kSendFileHeadSize;
        EXPECT_EQ(desk.send(piece), sendReply(last ? 129 : 128));
    }
    EXPECT_EQ(desk.send(requests::query("MAIN.BIN")), encodeStatusReply(128, 300, 300));
    EXPECT_EQ(desk.send(requests::exit()), simple(0x5102, 128));
    EXPECT_EQ(desk.record.stored["MAIN.BIN"], file);
    EXPECT_EQ(desk.printer->downloading, nullptr);
}

TEST(VymprinterSession, TargetInfoArrivesInBlocksThatFit)
{
    PrinterModel model;
    model.blockSize = 60;
    Desk desk(model);
    const auto bytes = desk.send(requests::getFile());
    std::string text;
    std::size_t at = 0;
    std::uint16_t status = 0;
    while (at < bytes.size()) {
        const auto size = get32(ByteView(bytes).subspan(at), 4) + kHeaderSize;
        ASSERT_LE(size, 60U);
        status = get16(bytes, at + 10);
        text.append(bytes.begin() + static_cast<std::ptrdiff_t>(at + kFileBlockHeadSize),
                    bytes.begin() + static_cast<std::ptrdiff_t>(at + size));
        at += size;
    }
    EXPECT_EQ(text, targetInfoText(model));
    EXPECT_EQ(status, 128);
}

TEST(VymprinterSession, PieceLongerThanMaxPacketIsRefusedAndAnAbsurdOneEndsTheConnection)
{
    PrinterModel model;
    model.maxPacket = 100;
    Desk desk(model);
    desk.entered();
    EXPECT_EQ(desk.send(requests::piece(0, 900, requests::firmware(41))), sendReply(0x0803));
    EXPECT_EQ(desk.lastVerdict(), "longer than MAXPACKET");
    EXPECT_EQ(desk.end, LinkEnd::none);
    EXPECT_TRUE(desk.send({0, 0, 0x50, 2, 0, 0xFF, 0xFF, 0xFF}).empty());
    EXPECT_EQ(desk.end, LinkEnd::close);
    EXPECT_THAT(desk.lastVerdict(), HasSubstr("absurd length"));
    EXPECT_FALSE(desk.session->wantsInput());
}

TEST(VymprinterSession, OutsideDownloadModeOnlyEnterAndGetFileAreServed)
{
    Desk desk;
    EXPECT_EQ(desk.send(requests::piece(0, 1, {1})), sendReply(0x0802));
    EXPECT_EQ(desk.send(requests::query("MAIN.BIN")), simple(0x5103, 0x0802));
    EXPECT_EQ(desk.send(requests::exit()), simple(0x5102, 0x0802));
    EXPECT_EQ(get16(desk.send(requests::getFile()), 10), 128);
}

TEST(VymprinterSession, SecondSessionIsBusyUntilTheFirstHasLeft)
{
    Desk desk;
    desk.entered();
    const auto second = desk.connect();
    EXPECT_EQ(desk.send(*second, requests::enter()), simple(0x5101, 0x1001));
    EXPECT_EQ(desk.send(*second, requests::piece(0, 1, {1})), sendReply(0x0802));
    desk.session.reset();
    EXPECT_EQ(desk.send(*second, requests::enter()), simple(0x5101, 128));
}

TEST(VymprinterSession, WritingTakesItsTime)
{
    PrinterModel model;
    model.writeRate = 100;
    Desk desk(model);
    desk.entered();
    for (const auto& piece : requests::pieces(requests::firmware(50), 50))
        desk.send(piece);
    EXPECT_EQ(desk.send(requests::shortQuery()), encodeStatusReply(129, 50, 0));
    desk.now += Millis(250);
    EXPECT_EQ(desk.send(requests::shortQuery()), encodeStatusReply(129, 50, 25));
    desk.now += Millis(250);
    EXPECT_EQ(desk.send(requests::shortQuery()), encodeStatusReply(128, 50, 50));
}

// A printer that restarts for a second, and then has the version 01.01.
PrinterModel restarting()
{
    PrinterModel model;
    model.restart = Millis(1000);
    model.updated = {{"MAIN", "01.01"}};
    return model;
}

TEST(VymprinterSession, RestartFollowsAnUpdateAndNothingElse)
{
    Desk checked(restarting());
    checked.entered().send(requests::exit());
    EXPECT_FALSE(checked.printer->backAt);
    Desk updated(restarting());
    updated.entered().send(requests::last(128, {}));
    EXPECT_EQ(updated.send(requests::exit()), simple(0x5102, 128));
    EXPECT_EQ(updated.printer->backAt, updated.now + Millis(1000));
    EXPECT_EQ(updated.printer->model.firmware.front().version, "01.01");
}

TEST(VymprinterSession, RestartMayBringTheOldVersionsOrNeverEnd)
{
    const struct {
        const char* fault;
        const char* version;
        Millis backAt;
    } rows[] = {{"old-version", "01.00", Millis(2000)}, {"gone", "01.01", Millis::max()}};
    for (const auto& row : rows) {
        Desk desk(restarting(), {row.fault});
        desk.entered().send(requests::last(128, {}));
        desk.send(requests::exit());
        EXPECT_EQ(desk.printer->backAt, row.backAt) << row.fault;
        EXPECT_EQ(desk.printer->model.firmware.front().version, row.version) << row.fault;
    }
}

TEST(VymprinterSession, QueryIsRefusedWhenNotSupported)
{
    PrinterModel model;
    model.statusQuery = false;
    Desk desk(model);
    desk.entered().send(requests::last(128, {}));
    EXPECT_EQ(desk.send(requests::shortQuery()), simple(0x5103, 0x0803));
    EXPECT_EQ(desk.lastVerdict(), "not supported");
}

TEST(VymprinterSession, RepliesCanBeLeftOutButErrorsAreReported)
{
    const struct {
        Replies replies;
        bool piece, last;
    } rows[] = {
        {Replies::every, true, true}, {Replies::last, false, true}, {Replies::none, false, false}};
    for (const auto& row : rows) {
        PrinterModel model;
        model.replies = row.replies;
        Desk desk(model);
        desk.entered();
        EXPECT_EQ(!desk.send(requests::piece(0, 2, {1, 2})).empty(), row.piece);
        EXPECT_EQ(!desk.send(requests::last(128, {1, 2})).empty(), row.last);
        EXPECT_EQ(desk.send(requests::piece(5, 2, {1, 2})), sendReply(0x0803));
    }
}

TEST(VymprinterSession, RepliesAtTenthsAreThoseOfTheFirstPieceInEach)
{
    PrinterModel model;
    model.replies = Replies::tenths;
    Desk desk(model);
    desk.entered();
    for (int file = 0; file < 2; ++file) {
        std::string replies; // one letter a piece
        for (const auto& piece : requests::pieces(requests::firmware(400), 10))
            replies += desk.send(piece).empty() ? '-' : 'r';
        // 40 pieces of 2.5 %: a tenth begins with each fourth. The first at 0 % counts only where
        // another file went before it.
        EXPECT_EQ(replies,
                  (file == 0 ? "-" : "r")
                      + std::string("---r---r---r---r---r---r---r---r---r---r"));
    }
}

TEST(VymprinterSession, SlowLinkDelaysEveryReplyButNotTheReading)
{
    PrinterModel model;
    model.replyDelay = Millis(200);
    Desk desk(model);
    EXPECT_TRUE(desk.send(requests::enter()).empty());
    desk.now += Millis(150);
    EXPECT_TRUE(desk.send(requests::piece(0, 2, {1, 2})).empty());
    EXPECT_EQ(desk.printer->downloading, desk.session.get());
    desk.now += Millis(50);
    EXPECT_EQ(desk.due(), simple(0x5101, 128));
    desk.now += Millis(150);
    EXPECT_EQ(desk.due(), sendReply(128));
}

TEST(VymprinterSession, SlowPrinterReadsNothingWhileItWorksOnAPiece)
{
    PrinterModel model;
    model.pieceTime = Millis(160);
    Desk desk(model);
    desk.entered();
    const auto pieces = requests::pieces(requests::firmware(20), 10);
    EXPECT_TRUE(desk.send(pieces[0]).empty());
    EXPECT_FALSE(desk.session->wantsInput());
    EXPECT_FALSE(desk.session->hasWork());
    ASSERT_TRUE(desk.session->busyUntil().has_value());
    desk.now = *desk.session->busyUntil() - Millis(1);
    EXPECT_TRUE(desk.due().empty());
    desk.now += Millis(1);
    EXPECT_EQ(desk.due(), sendReply(0x0080));
    EXPECT_TRUE(desk.session->wantsInput());
    EXPECT_EQ(desk.send(requests::enter()).size(), 12U) << "only firmware takes its time";
}

TEST(VymprinterSession, RequestsMayComeByteByByteOrAllAtOnce)
{
    requests::Packet stream = requests::enter();
    for (const auto& piece : requests::pieces(requests::firmware(100), 40))
        stream.insert(stream.end(), piece.begin(), piece.end());
    Desk whole;
    const auto replies = whole.send(stream);
    EXPECT_EQ(replies.size(), 5 * kSimpleReplySize);
    Desk split;
    Bytes splitReplies;
    for (const auto byte : stream) {
        const auto reply = split.send({byte});
        splitReplies.insert(splitReplies.end(), reply.begin(), reply.end());
    }
    EXPECT_EQ(splitReplies, replies);
    EXPECT_EQ(split.record.stored, whole.record.stored);
}

TEST(VymprinterSession, InputThatEndsLeavesDownloadModeAndFinishes)
{
    Desk desk;
    desk.entered();
    EXPECT_FALSE(desk.session->finished());
    desk.session->inputEnded();
    desk.due();
    EXPECT_TRUE(desk.session->finished());
    EXPECT_EQ(desk.printer->downloading, nullptr);
}

} // namespace
