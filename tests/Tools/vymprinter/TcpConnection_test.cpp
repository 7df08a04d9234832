// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/TcpConnection.h"
#include "tests/Tools/vymprinter/tcp_desk.h"

#include <chrono>
#include <gmock/gmock.h>
#include <thread>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterTcpConnection, RequestsRunTogetherAreAnsweredInOrder)
{
    TcpDesk desk;
    Updater updater(desk.printer());
    requests::Packet all = requests::enter();
    for (const auto& packet : {requests::last(129, {}), requests::shortQuery(), requests::exit()})
        all.insert(all.end(), packet.begin(), packet.end());
    updater.send(all);
    updater.sendNoMore();
    for (const int code : {0x01, 0x02, 0x03, 0x02})
        EXPECT_EQ(updater.reply().at(3), code);
    EXPECT_EQ(updater.endedWith(), 0);
}

TEST(VymprinterTcpConnection, AbsurdLengthEndsTheConnection)
{
    TcpDesk desk;
    Updater updater(desk.printer());
    updater.send({0, 0, 0x50, 2, 0x7F, 0xFF, 0xFF, 0xFF});
    EXPECT_EQ(updater.endedWith(), 0);
    EXPECT_THAT(desk.stored(0, "transcript.txt"), HasSubstr("absurd length"));
}

// Each row sends only the bytes that trigger the fault: further bytes that arrive after the close
// would turn every close into a reset.
TEST(VymprinterTcpConnection, ConnectionEndsInTheRequestedWay)
{
    const auto piece = requests::piece(0, 900, requests::firmware(120));
    const struct {
        const char* fault;
        std::vector<requests::Packet> answered;
        requests::Packet fatal;
        int error;
    } rows[] = {
        {"close@connect", {}, {}, 0},
        {"reset@connect", {}, {}, ECONNRESET},
        {"close@enter", {}, requests::enter(), 0},
        {"reset@enter", {}, requests::enter(), ECONNRESET},
        {"close@piece:100", {requests::enter()}, piece, 0},
        {"reset@piece", {requests::enter()}, piece, ECONNRESET},
        {"close@exit", {requests::enter(), piece}, requests::exit(), 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        TcpDesk desk(row.fault);
        Updater updater(desk.printer());
        for (const auto& packet : row.answered)
            EXPECT_EQ(updater.status(packet), 128);
        updater.send(row.fatal);
        EXPECT_EQ(updater.endedWith(), row.error);
    }
}

TEST(VymprinterTcpConnection, StalledPrinterKeepsTheConnectionAndNoticesTheHangUp)
{
    TcpDesk desk("stall@enter");
    auto updater = std::make_unique<Updater>(desk.printer());
    updater->send(requests::enter());
    EXPECT_FALSE(updater->readable(30));
    updater.reset();
    Updater next(desk.printer());
    EXPECT_TRUE(next.connected());
}

TEST(VymprinterTcpConnection, SilentPrinterReadsOnAndStoresWithoutReplying)
{
    TcpDesk desk("silent@piece");
    Updater updater(desk.printer());
    updater.ask(requests::enter());
    for (const auto& piece : requests::pieces({1, 2, 3}, 2))
        updater.send(piece);
    updater.sendNoMore();
    EXPECT_EQ(updater.endedWith(), 0);
    EXPECT_EQ(desk.stored(0, "MAIN.BIN").size(), 3U);
}

// Measured from before the request: this thread may see the first part late.
TEST(VymprinterTcpConnection, HeaderInTwoPartsIsThirtyMillisecondsApart)
{
    TcpDesk desk("split-reply");
    Updater updater(desk.printer());
    const auto start = std::chrono::steady_clock::now();
    updater.send(requests::enter());
    EXPECT_EQ(updater.receive(4).size(), 4U);
    EXPECT_EQ(updater.receive(8).size(), 8U);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(29));
}

TEST(VymprinterTcpConnection, FragmentedBodyArrivesWhole)
{
    TcpDesk desk("split-body@get-file");
    Updater updater(desk.printer());
    EXPECT_EQ(targetInfo(updater), targetInfoText(PrinterModel()));
}

TEST(VymprinterTcpConnection, DelayedRepliesKeepTheirOrder)
{
    PrinterModel model;
    model.replyDelay = Millis(40);
    TcpDesk desk(model);
    Updater updater(desk.printer());
    const auto start = std::chrono::steady_clock::now();
    updater.send(requests::enter());
    updater.send(requests::last(129, {}));
    EXPECT_EQ(updater.reply().at(2), 0x51);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(39));
    EXPECT_EQ(updater.reply().at(2), 0x50);
}

} // namespace
