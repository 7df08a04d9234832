// SPDX-License-Identifier: MIT
// Whole updates over a real bus: the command line that users get, the kernel and a printer.
#include "tests/system/Ways.h"
#include "tests/system/usb/BusTrace.h"
#include "tests/system/usb/UsbDesk.h"

#include <tuple>

namespace {

using namespace usbDesk;
using std::chrono::milliseconds;

constexpr std::size_t kHead = 60;

class WholeUpdate : public ::testing::TestWithParam<Ways> { };

TEST_P(WholeUpdate, BringsEveryByteToThePrinterAndGivesItBackToTheKernel)
{
    const auto [count, pattern, statusQuery, replies] = GetParam();
    auto firmware = threeFirmware();
    firmware.resize(count);
    const PackageFolder package(firmware, {std::string("SPECIALCMDPATTERN ") + pattern});
    const BusPrinter printer(
        listsOlder({statusQuery, "--replies", replies, "--write-rate", "200000"}));
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    ASSERT_EQ(run.exitCode(), 0) << run.process().out() << run.process().errors();
    expectStored(printer, package);
    const auto result = run.result();
    for (const auto& one : result["firmware"]) {
        EXPECT_EQ(one["sent"], true);
        EXPECT_EQ(one["bytes_sent"], one["bytes_total"]);
        EXPECT_EQ(one["confirmed"], std::string(statusQuery) == "--status-query");
    }
    EXPECT_TRUE(driverServes(1));
}

INSTANTIATE_TEST_SUITE_P(InEveryWay, WholeUpdate,
                         ::testing::Combine(::testing::Values(1, 3), ::testing::Values("YES", "NO"),
                                            ::testing::Values("--status-query",
                                                              "--no-status-query"),
                                            ::testing::Values("tenths", "last")),
                         nameOfWay);

class ImageSize : public ::testing::TestWithParam<std::size_t> { };

TEST_P(ImageSize, ArrivesWhole)
{
    for (const char* pattern : {"SPECIALCMDPATTERN NO", "SPECIALCMDPATTERN YES"}) {
        const PackageFolder package({{"MAIN", "AB010200", GetParam()}}, {pattern});
        const BusPrinter printer(listsOlder());
        CliRun run(updateOf(printer, package), CliRun::Pauses::full);
        EXPECT_EQ(run.exitCode(), 0) << run.process().out();
        expectStored(printer, package);
    }
}

// Sizes around the printer's packets and those of the bus: the head and 452 bytes fill one.
INSTANTIATE_TEST_SUITE_P(AroundPieces, ImageSize,
                         ::testing::Values(0, 512 - kHead - 1, 512 - kHead, 512 - kHead + 1, kPiece,
                                           kPiece + 1, 300000),
                         ::testing::PrintToStringParamName());

// Texts whose blocks fill whole packets, with and without the empty packet that ends an answer.
using Blocks = std::tuple<const char*, const char*>;
class AnswerOfWholePackets : public ::testing::TestWithParam<Blocks> { };

TEST_P(AnswerOfWholePackets, IsReadToItsEnd)
{
    const auto [size, empty] = GetParam();
    const PackageFolder package({{"MAIN", "AB010200", 20000}});
    const TempFolder folder;
    std::string text = "TGMNAME MODEL-A\r\nVERSION MAIN=AB010100\r\nMAXPACKET 4096\r\n";
    for (const char* code : {"5001", "5002", "5101", "5102", "5103"})
        text += std::string("SUPPORT_COMMAND ") + code + "\r\n";
    text += "REMARK " + std::string(3000, 'x') + "\r\n";
    folder.write("info", text);
    const BusPrinter printer({"--target-info", folder / "info", "--block-size", size, empty});
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0) << run.process().out();
    expectStored(printer, package);
}

std::string nameOfBlocks(const ::testing::TestParamInfo<Blocks>& tested)
{
    const auto& [size, empty] = tested.param;
    return std::string(size) + (std::string(empty) == "--usb-empty-packet" ? "Ended" : "Unended");
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutAnEnd, AnswerOfWholePackets,
                         ::testing::Combine(::testing::Values("512", "1024", "4096"),
                                            ::testing::Values("--usb-empty-packet",
                                                              "--no-usb-empty-packet")),
                         nameOfBlocks);

TEST(UsbUpdate, WaitsForAPrinterThatWritesSlowly)
{
    const PackageFolder package({{"MAIN", "AB010200", 50000}});
    const BusPrinter printer(listsOlder({"--write-rate", "10000"}));
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0);
    EXPECT_NE(run.process().out().find("\"writing\""), std::string::npos);
}

TEST(UsbUpdate, ArrivesOverALinkWhoseAnswersComeLate)
{
    for (const char* delay : {"3", "15", "300"}) {
        const PackageFolder package(threeFirmware(), {"UPDATETIME 5"});
        const BusPrinter printer(listsOlder({"--reply-delay", delay}));
        CliRun run(updateOf(printer, package), CliRun::Pauses::full);
        EXPECT_EQ(run.exitCode(), 0) << delay << run.process().out();
        expectStored(printer, package);
    }
}

// One data piece on the bus, and what the computer did before the next packet.
struct Piece {
    std::size_t offset;
    milliseconds pause; // from its end to the start of the next packet
    bool read; // the host read a reply in between
};

bool isPiece(const BusEvent& event)
{
    const auto& bytes = event.bytes;
    return event.bulk && !event.in && event.kind == BusEvent::Kind::submitted
        && event.length > kHead && bytes.size() > kHead && bytes[2] == 0x50 && bytes[3] == 0x02
        && bytes[42] == 0 && bytes[43] == 0;
}

std::vector<Piece> piecesOf(const std::vector<BusEvent>& events)
{
    std::vector<Piece> pieces;
    for (auto event = events.begin(); event != events.end(); ++event) {
        if (!isPiece(*event))
            continue;
        const auto& at = event->bytes;
        Piece piece{std::size_t{at[44]} << 24 | std::size_t{at[45]} << 16 | std::size_t{at[46]} << 8
                        | at[47],
                    {},
                    false};
        auto ended = event->at;
        for (auto later = event + 1; later != events.end(); ++later) {
            const bool begins = later->kind == BusEvent::Kind::submitted;
            if (later->transfer == event->transfer && later->kind == BusEvent::Kind::completed
                && !later->in && ended == event->at)
                ended = later->at;
            piece.read = piece.read || (later->bulk && later->in && begins);
            if (later->bulk && !later->in && begins) {
                piece.pause = std::chrono::duration_cast<milliseconds>(later->at - ended);
                break;
            }
        }
        pieces.push_back(piece);
    }
    return pieces;
}

void expectTheRule(const std::vector<Piece>& pieces, std::size_t size, std::size_t& lastPercent)
{
    for (const auto& piece : pieces) {
        SCOPED_TRACE("piece at " + std::to_string(piece.offset));
        const auto percent = piece.offset * 100 / size;
        const bool waits = percent % 10 == 0 && percent != lastPercent;
        lastPercent = percent;
        EXPECT_EQ(piece.read, waits);
        if (!waits) {
            EXPECT_GE(piece.pause, milliseconds(20));
            EXPECT_LT(piece.pause, milliseconds(40));
        } else {
            EXPECT_LT(piece.pause, milliseconds(20)); // an answer ends the pause at once
        }
    }
}

// The very first piece, at 0 %, starts no new tenth; the first piece of a later firmware does.
TEST(UsbUpdate, WaitsForAnAnswerAtEachNewTenthAndElsewherePausesTwentyMilliseconds)
{
    const std::size_t counts[] = {30, 7};
    const PackageFolder package(
        {{"MAIN", "AB010200", counts[0] * kPiece}, {"FONT", "AB0101.20", counts[1] * kPiece}});
    const BusPrinter printer(listsOlder());
    BusTrace trace;
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0);
    const auto pieces = piecesOf(trace.stop());
    ASSERT_EQ(pieces.size(), counts[0] + counts[1]);
    const auto second = pieces.begin() + static_cast<std::ptrdiff_t>(counts[0]);
    std::size_t percent = 0;
    expectTheRule({pieces.begin(), second}, counts[0] * kPiece, percent);
    expectTheRule({second, pieces.end()}, counts[1] * kPiece, percent);
}

// A read that got no answer in time stays outstanding, so that no answer is lost.
TEST(UsbUpdate, CancelsNoReadOfAnAnswerThatComesLate)
{
    const PackageFolder package({{"MAIN", "AB010200", 30 * kPiece}});
    const BusPrinter printer(listsOlder({"--reply-delay", "8"}));
    BusTrace trace;
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0);
    std::size_t answers = 0;
    bool asked = false; // before its first packet the host drains answers to earlier users
    for (const auto& event : trace.stop()) {
        asked = asked || (event.bulk && !event.in);
        if (!asked || !event.bulk || !event.in || event.kind == BusEvent::Kind::submitted)
            continue;
        EXPECT_EQ(event.status, 0);
        ++answers;
    }
    const auto transcript = printer.transcript();
    std::size_t told = 0;
    for (auto at = transcript.find("\tout\t"); at != std::string::npos;
         at = transcript.find("\tout\t", at + 1))
        ++told;
    EXPECT_EQ(answers, told);
}

} // namespace
