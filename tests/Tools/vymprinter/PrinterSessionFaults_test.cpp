// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterSession.h"
#include "tests/Tools/vymprinter/desk.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterSessionFaults, ConnectionBreaksInTheMiddleOfAPiece)
{
    const struct {
        const char* fault;
        LinkEnd end;
    } rows[] = {{"close@piece:150", LinkEnd::close},
                {"reset@piece:150", LinkEnd::reset},
                {"halt-out@piece:150", LinkEnd::haltOut},
                {"stall@piece:150", LinkEnd::none}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        Desk desk({}, {row.fault});
        desk.entered();
        const auto pieces = requests::pieces(requests::firmware(300), 100);
        EXPECT_EQ(desk.send(pieces[0]), sendReply(128));
        const auto half = pieces[1].begin() + 60;
        EXPECT_TRUE(desk.send({pieces[1].begin(), half + 49}).empty());
        EXPECT_EQ(desk.end, LinkEnd::none);
        EXPECT_TRUE(desk.session->wantsInput());
        EXPECT_TRUE(desk.send({half[49]}).empty());
        EXPECT_EQ(desk.end, row.end);
        EXPECT_FALSE(desk.session->wantsInput());
        EXPECT_EQ(desk.session->stalled(), row.end == LinkEnd::none);
    }
}

TEST(VymprinterSessionFaults, PipeIsHaltedInPlaceOfTheReply)
{
    const struct {
        const char* fault;
        LinkEnd end;
    } rows[] = {{"halt-in@exit", LinkEnd::haltIn}, {"halt-out@exit", LinkEnd::haltOut}};
    for (const auto& row : rows) {
        Desk desk({}, {row.fault});
        desk.entered();
        EXPECT_EQ(desk.end, LinkEnd::none) << row.fault;
        EXPECT_TRUE(desk.send(requests::exit()).empty()) << row.fault;
        EXPECT_EQ(desk.end, row.end) << row.fault;
        EXPECT_FALSE(desk.session->wantsInput()) << row.fault;
    }
}

TEST(VymprinterSessionFaults, EmptyPacketGoesAheadOfTheReply)
{
    Desk desk({}, {"empty-packet@enter"});
    desk.session->receive(requests::enter());
    desk.session->advance(desk.now);
    ASSERT_FALSE(desk.session->outgoing().empty());
    EXPECT_TRUE(desk.session->outgoing().unsent().empty());
    desk.session->outgoing().sent(0);
    EXPECT_EQ(desk.due(), simple(0x5101, 0x0080));
}

TEST(VymprinterSessionFaults, OnlyTheFirstConnectionsAreStruckOnRequest)
{
    Desk desk({}, {"refuse-busy"});
    desk.printer->faultyConnections = 2;
    const bool struck[] = {true, false, false}; // the desk's own was the first
    for (const bool one : struck) {
        desk.session.reset();
        desk.session = desk.connect();
        EXPECT_EQ(desk.send(requests::enter()), simple(0x5101, one ? 0x1001 : 0x0080));
    }
}

TEST(VymprinterSessionFaults, EachFaultGivesTheReplyItPromises)
{
    using requests::Packet;
    const struct {
        const char* fault;
        std::vector<Packet> packets;
        Bytes reply; // to the last packet
    } rows[] = {
        {"refuse-busy", {requests::enter()}, simple(0x5101, 0x1001)},
        {"refuse-fax", {requests::enter()}, simple(0x5101, 0x1002)},
        {"silent", {requests::enter(), requests::getFile()}, {}},
        {"status-0803", {requests::enter(), requests::last(129, {})}, sendReply(0x0803)},
        {"status-0804@exit", {requests::enter(), requests::exit()}, simple(0x5102, 0x0804)},
        {"status-unknown@piece",
         {requests::enter(), requests::piece(0, 1, {1})},
         sendReply(0x7777)},
        {"wrong-code@exit", {requests::enter(), requests::exit()}, simple(0x51FF, 128)},
        {"busy-forever",
         {requests::enter(), requests::last(129, {}), requests::shortQuery()},
         encodeStatusReply(129, 0, 0)},
        {"status-over-100",
         {requests::enter(), requests::piece(0, 1, {1}), requests::last(129, {1}),
          requests::shortQuery()},
         encodeStatusReply(128, 1, 3)},
        {"short-reply@piece:2",
         {requests::enter(), requests::piece(0, 3, {1}), requests::piece(1, 3, {1, 1})},
         {0, 0, 0x50, 2, 0, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        PrinterModel model;
        model.replies = Replies::none; // a fault that changes a reply makes sure there is one
        Desk desk(model, {row.fault});
        Bytes reply;
        for (const auto& packet : row.packets)
            reply = desk.send(packet);
        EXPECT_EQ(reply, row.reply);
    }
}

TEST(VymprinterSessionFaults, RefusedPieceIsNotStoredAndRefusedEnterDoesNotEnter)
{
    Desk desk({}, {"status-0804", "status-0803@enter"});
    desk.entered();
    EXPECT_EQ(desk.printer->downloading, nullptr);
    desk.entered().send(requests::last(129, {}));
    EXPECT_TRUE(desk.record.stored.empty());
    EXPECT_THAT(desk.lastVerdict(), HasSubstr("fault status-0804"));
}

TEST(VymprinterSessionFaults, RefusedPieceEndsItsFirmware)
{
    Desk desk({}, {"status-0804@piece:150"});
    const auto pieces = requests::pieces(requests::firmware(300), 100);
    desk.entered();
    EXPECT_EQ(desk.send(pieces[0]), sendReply(0x0080));
    EXPECT_EQ(desk.send(pieces[1]), sendReply(0x0804));
    EXPECT_EQ(desk.send(pieces[2]), sendReply(0x0803));
    EXPECT_EQ(desk.record.abandoned, 1);
    EXPECT_EQ(desk.lastVerdict(), "a firmware does not begin at 0");
}

TEST(VymprinterSessionFaults, PowerLossLosesThePacketsThatWereNotHandled)
{
    PrinterModel model;
    model.replyDelay = Millis(50);
    Desk desk(model, {"die@piece:11"});
    desk.entered();
    const auto pieces = requests::pieces(requests::firmware(30), 10);
    desk.send(pieces[0]); // its answer is under way
    EXPECT_TRUE(desk.send(pieces[1]).empty());
    EXPECT_TRUE(desk.session->stalled());
    desk.now += Millis(3999);
    EXPECT_TRUE(desk.due().empty());
    EXPECT_EQ(desk.end, LinkEnd::none);
    desk.now += Millis(1);
    EXPECT_TRUE(desk.due().empty());
    EXPECT_EQ(desk.end, LinkEnd::reset);
    EXPECT_TRUE(desk.record.stored.empty());
}

TEST(VymprinterSessionFaults, EndlessFileIsMadeOnlyAsFastAsItLeaves)
{
    for (const auto* fault : {"endless", "endless-empty"}) {
        Desk desk({}, {fault});
        desk.session->receive(requests::getFile());
        desk.session->advance(desk.now);
        EXPECT_TRUE(desk.session->outgoing().full());
        EXPECT_FALSE(desk.session->hasWork());
        desk.session->outgoing().sent(desk.session->outgoing().front().bytes.size());
        desk.session->advance(desk.now);
        EXPECT_TRUE(desk.session->outgoing().full()) << fault;
    }
}

TEST(VymprinterSessionFaults, SilenceAndAnEndlessFileDoNotSpin)
{
    Desk desk({}, {"silent@connect", "endless"});
    EXPECT_TRUE(desk.send(requests::getFile()).empty());
    EXPECT_FALSE(desk.session->hasWork());
}

TEST(VymprinterSessionFaults, HugeLineStillEndsWithTheWholeText)
{
    Desk desk({}, {"target-info-huge-line"});
    const auto bytes = desk.send(requests::getFile());
    EXPECT_GT(bytes.size(), 1U << 20);
    const std::string end(bytes.end() - 22, bytes.end());
    EXPECT_EQ(end, "SUPPORT_COMMAND 5103\r\n");
}

TEST(VymprinterSessionFaults, BadChecksumIsOnlyInTheLastBlock)
{
    Desk good;
    Desk bad({}, {"bad-checksum"});
    const auto right = good.send(requests::getFile());
    auto wrong = bad.send(requests::getFile());
    EXPECT_NE(get16(wrong, 20), get16(right, 20));
    put16(wrong, 20, get16(right, 20));
    EXPECT_EQ(wrong, right);
}

TEST(VymprinterSessionFaults, NoInputBreaksTheSession)
{
    std::uint32_t state = 1;
    const auto random = [&] { return (state = state * 1664525U + 1013904223U) >> 16; };
    for (int round = 0; round < 2000; ++round) {
        Desk desk;
        desk.entered();
        auto pieces = requests::pieces(requests::firmware(90), 50);
        pieces.push_back(requests::query("MAIN.BIN"));
        pieces.push_back(requests::getFile());
        for (auto& packet : pieces) {
            packet[random() % packet.size()] = static_cast<std::uint8_t>(random());
            packet.resize(packet.size() - random() % 3);
            if (desk.session->wantsInput())
                desk.send(packet);
        }
        desk.session->inputEnded();
        desk.due();
        EXPECT_TRUE(desk.session->finished());
    }
}

} // namespace
