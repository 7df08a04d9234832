// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/TcpServer.h"
#include "tests/Tools/vymprinter/tcp_desk.h"

#include <chrono>
#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

// Sends an empty firmware and leaves download mode, so that the printer restarts.
void updateAndLeave(const Endpoint& printer)
{
    Updater updater(printer);
    updater.ask(requests::enter());
    updater.ask(requests::last(128, {}));
    EXPECT_EQ(updater.ask(requests::exit()).size(), 12U);
    EXPECT_EQ(updater.endedWith(), 0);
}

TEST(VymprinterTcpServer, WholeUpdateWorksWithEveryWayOfReplying)
{
    const auto file = requests::firmware(300'001);
    for (const auto replies : {Replies::every, Replies::last, Replies::none}) {
        PrinterModel model;
        model.replies = replies;
        model.maxPacket = 10'000;
        TcpDesk desk(model);
        Updater updater(desk.printer());
        EXPECT_EQ(updater.status(requests::enter()), 128);
        EXPECT_EQ(targetInfo(updater), targetInfoText(model));
        const auto pieces = requests::pieces(file, 9'940);
        for (const auto& piece : pieces) {
            updater.send(piece);
            const bool last = &piece == &pieces.back();
            if (replies == Replies::every || (replies == Replies::last && last)) {
                ASSERT_EQ(updater.reply().at(11), last ? 129 : 128);
            }
        }
        EXPECT_EQ(updater.status(requests::query("MAIN.BIN")), 128);
        EXPECT_EQ(updater.status(requests::exit()), 128);
        EXPECT_EQ(desk.stored(0, "MAIN.BIN"), text(file));
    }
}

TEST(VymprinterTcpServer, TranscriptHasALineForEveryPacket)
{
    TcpDesk desk;
    Updater updater(desk.printer());
    updater.ask(requests::enter());
    updater.ask(requests::piece(0, 3, {1, 2}));
    updater.ask(requests::piece(1, 3, {3}));
    const auto transcript = desk.stored(0, "transcript.txt");
    EXPECT_EQ(std::count(transcript.begin(), transcript.end(), '\n'), 1 + 6);
    EXPECT_THAT(transcript, HasSubstr("\tin\t0x5101\t-\t0x0000\t0\t0\t0\tok\t1\n"));
    EXPECT_THAT(transcript, HasSubstr("\tin\t0x5002\tMAIN.BIN\t0x0000\t0\t3\t2\tok\t1\n"));
    EXPECT_THAT(transcript, HasSubstr("\t1\t3\t1\tdoes not begin where the last piece ended\t1\n"));
    EXPECT_THAT(transcript, HasSubstr("\tout\t0x5002\t-\t0x0803\t0\t0\t0\tsent\t1\n"));
}

TEST(VymprinterTcpServer, UnfinishedFirmwareLeavesNoFile)
{
    TcpDesk desk;
    {
        Updater updater(desk.printer());
        updater.ask(requests::enter());
        updater.ask(requests::piece(0, 3, {1, 2}));
        EXPECT_TRUE(desk.hasFile(".MAIN.BIN.part"));
        updater.sendNoMore();
        EXPECT_EQ(updater.endedWith(), 0);
    }
    EXPECT_FALSE(desk.hasFile(".MAIN.BIN.part"));
    EXPECT_FALSE(desk.hasFile("MAIN.BIN"));
}

TEST(VymprinterTcpServer, ManyPrintersAreUpdatedAtOnceAndKeptApart)
{
    constexpr std::uint32_t kPrinters = 12;
    TcpDesk desk(PrinterModel(), {}, kPrinters);
    std::vector<std::unique_ptr<Updater>> updaters;
    std::vector<std::vector<requests::Packet>> pieces;
    for (std::uint32_t i = 0; i < kPrinters; ++i) {
        updaters.push_back(std::make_unique<Updater>(desk.printer(i)));
        pieces.push_back(requests::pieces(requests::firmware(1000 + i), 100));
        EXPECT_EQ(updaters.back()->status(requests::enter()), 128);
    }
    for (std::size_t at = 0; at < pieces.back().size(); ++at)
        for (std::size_t i = 0; i < kPrinters; ++i)
            if (at < pieces[i].size())
                updaters[i]->send(pieces[i][at]);
    for (std::uint32_t i = 0; i < kPrinters; ++i) {
        while (updaters[i]->reply().at(11) != 129) { }
        EXPECT_EQ(desk.stored(i, "MAIN.BIN"), text(requests::firmware(1000 + i)));
    }
}

TEST(VymprinterTcpServer, SecondUpdaterIsRefusedAsBusyUntilTheFirstDisconnects)
{
    TcpDesk desk;
    auto first = std::make_unique<Updater>(desk.printer());
    Updater second(desk.printer());
    EXPECT_EQ(first->status(requests::enter()), 128);
    EXPECT_EQ(second.status(requests::enter()), 0x1001);
    first->sendNoMore();
    EXPECT_EQ(first->endedWith(), 0);
    EXPECT_EQ(second.status(requests::enter()), 128);
}

TEST(VymprinterTcpServer, RestartingPrinterRefusesConnections)
{
    PrinterModel model;
    model.restart = std::chrono::hours(1);
    const TcpDesk desk(model);
    updateAndLeave(desk.printer());
    while (Updater(desk.printer()).connected()) { } // it still listens when it closes the old one
}

TEST(VymprinterTcpServer, RestartedPrinterIsBackAtItsAddress)
{
    PrinterModel model;
    model.restart = Millis(50);
    model.updated = {{"MAIN", "01.01"}};
    const TcpDesk desk(model);
    updateAndLeave(desk.printer());
    std::string installed;
    while (installed.empty()) {
        Updater updater(desk.printer());
        if (updater.connected())
            installed = targetInfo(updater);
    }
    EXPECT_THAT(installed, HasSubstr("VERSION MAIN=01.01"));
}

TEST(VymprinterTcpServer, UpdaterThatNeverReadsIsMadeToWaitAndDoesNotBlockOthers)
{
    TcpDesk desk("endless");
    Updater greedy(desk.printer());
    greedy.send(requests::getFile());
    Updater other(desk.printer());
    EXPECT_EQ(other.status(requests::enter()), 128);
    EXPECT_EQ(greedy.receive(1'000'000).size(), 1'000'000U);
}

} // namespace
