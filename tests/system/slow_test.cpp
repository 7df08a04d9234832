// SPDX-License-Identifier: MIT
// Printers that are honest and slow: every byte arrives, or the result is an error. The claims are
// compared with the firmware that the printer has stored.
#include "tests/system/Desk.h"

namespace {

using namespace desk;

// An updated printer has every byte; any other result is an error.
void expectTruth(CliRun& run, const VirtualPrinter& printer, const PackageFolder& package,
                 bool updated)
{
    const int code = run.exitCode(kSoon);
    EXPECT_EQ(code == 0, updated) << code << '\n' << run.process().out();
    EXPECT_EQ(run.result()["firmware_bytes_sent"], true);
    if (updated)
        expectStored(printer, package);
    else
        EXPECT_FALSE(printer.stored(package.firmware().back().sentName()).has_value());
}

struct Slowness {
    const char* name;
    std::size_t size;
    std::vector<std::string> printer;
};

std::string nameOf(const ::testing::TestParamInfo<Slowness>& tested)
{
    return tested.param.name;
}

class SlowPrinter : public ::testing::TestWithParam<Slowness> { };

TEST_P(SlowPrinter, GetsEveryByte)
{
    for (const char* query : {"--no-status-query", "--status-query"}) {
        SCOPED_TRACE(query);
        const PackageFolder package({{"MAIN", "AB010200", GetParam().size}}, {"UPDATETIME 5"});
        auto options = listsOlder({query});
        options.insert(options.end(), GetParam().printer.begin(), GetParam().printer.end());
        const VirtualPrinter printer(options);
        CliRun run(updateOf(printer, package));
        expectTruth(run, printer, package, true);
    }
}

const Slowness kSlow[] = {
    {"OfLargePieces", 1000000, {"--max-packet", "65536", "--piece-time", "160"}},
    {"WithASmallWindow",
     500000,
     {"--max-packet", "65536", "--piece-time", "160", "--window", "4096"}},
    {"OfSmallPieces", 50000, {"--piece-time", "25"}},
    {"SlowerThanHalfASecond", 20000, {"--piece-time", "700"}},
    {"ThatAnswersItsLastBlockAlone", 50000, {"--replies", "last", "--piece-time", "60"}},
    {"ThatAnswersTenths", 50000, {"--replies", "tenths", "--piece-time", "60"}},
    {"WhoseTenthsComeLate", 50000, {"--replies", "tenths", "--reply-delay", "300"}},
};

INSTANTIATE_TEST_SUITE_P(Printers, SlowPrinter, ::testing::ValuesIn(kSlow), &nameOf);

class SlowFault : public ::testing::TestWithParam<Slowness> { };

TEST_P(SlowFault, IsNeverCalledAnUpdate)
{
    const PackageFolder package({{"MAIN", "AB010200", GetParam().size}});
    auto options = listsOlder({"--no-status-query"});
    options.insert(options.end(), GetParam().printer.begin(), GetParam().printer.end());
    const VirtualPrinter printer(options);
    CliRun run(updateOf(printer, package));
    expectTruth(run, printer, package, false);
}

// Faults strike in the backlog: the window has pieces that the printer has not taken yet. Those
// that end in silence come after several answers: a few alone can fall on tenths of the file by
// accident, as from a printer that answers nothing else.
const Slowness kFaults[] = {
    {"PowerLoss", 100000, {"--piece-time", "160", "--fault", "die@piece:40000"}},
    {"PowerLossWithLargePieces",
     2000000,
     {"--max-packet", "65536", "--piece-time", "160", "--fault", "die@piece:600000"}},
    {"Close", 50000, {"--piece-time", "100", "--fault", "close@piece:12200"}},
    {"Reset", 50000, {"--piece-time", "100", "--fault", "reset@piece:12200"}},
    {"Hanging", 100000, {"--piece-time", "100", "--fault", "stall@piece:40000"}},
    {"LateRefusalOfAPiece", 50000, {"--piece-time", "100", "--fault", "status-0804@piece:12200"}},
    {"LateRefusalOfTheLastBlock",
     20000,
     {"--piece-time", "700", "--fault", "status-0804@last-block"}},
    {"UnknownAnswerToTheLastBlock",
     20000,
     {"--piece-time", "100", "--fault", "status-unknown@last-block"}},
};

INSTANTIATE_TEST_SUITE_P(InTheBacklog, SlowFault, ::testing::ValuesIn(kFaults), &nameOf);

TEST(SlowRun, IsHeardOutForEveryFirmwareOfARun)
{
    const PackageFolder package({{"MAIN", "AB010200", 20000}, {"BOOT", "01.20", 9000}});
    const VirtualPrinter printer(listsOlder({"--no-status-query", "--piece-time", "60"}));
    CliRun run(updateOf(printer, package));
    expectTruth(run, printer, package, true);
}

// The second firmware's last block gets the answer to an earlier piece; its own is a refusal.
TEST(LateAnswer, DoesNotHideARefusalOfAPrinterWithoutAStatusQuery)
{
    const PackageFolder package({{"MAIN", "AB010200", 20000}, {"BOOT", "01.20", 4000}});
    const VirtualPrinter printer(listsOlder(
        {"--no-status-query", "--reply-delay", "12", "--fault", "status-0804@last-block:2"}));
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(kSoon), 12) << run.process().out();
}

// A printer that answers in time sees the same packets as ever.
TEST(PromptPrinter, SeesNoOtherPacketsWhereItAnswersItsLastBlockAlone)
{
    const PackageFolder package({{"MAIN", "AB010200", 20000}});
    const auto commands = [&](const char* replies) {
        const VirtualPrinter printer(listsOlder({"--no-status-query", "--replies", replies}));
        CliRun run(updateOf(printer, package));
        expectTruth(run, printer, package, true);
        std::istringstream lines(printer.transcript());
        std::string found;
        for (std::string line; std::getline(lines, line);) {
            if (const auto at = line.find("\tin\t"); at != std::string::npos)
                found += line.substr(at + 4, 6) + '\n';
        }
        return found;
    };
    EXPECT_EQ(commands("last"), commands("every"));
}

} // namespace
