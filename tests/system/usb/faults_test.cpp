// SPDX-License-Identifier: MIT
// Each fault of a printer on a bus during an update: checks the exit code and bounded time, that
// the kernel's driver gets the interface back, and that a second update works.
#include "tests/system/Fault.h"
#include "tests/system/usb/UsbDesk.h"

#include <csignal>
#include <thread>

namespace {

using namespace usbDesk;

// The sum of the longest time-outs, on the machine's own clock, which does not depend on load.
constexpr std::chrono::seconds kBound{45};

class BusFault : public ::testing::TestWithParam<Fault> { };

TEST_P(BusFault, EndsWithItsCodeLeavesNothingClaimedAndASecondUpdateWorks)
{
    const auto& fault = GetParam();
    const PackageFolder package({{"MAIN", "AB010200", 50000}});
    BusPrinter printer(
        {"--firmware", "MAIN=AB010100", "--fault", fault.spec, "--faulty-connections", "1"});
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    const int code = run.exitCode(kBound);
    EXPECT_TRUE(fault.exitCodes.count(code) != 0) << code << '\n'
                                                  << run.process().out() << run.process().errors();
    EXPECT_EQ(run.result()["firmware_bytes_sent"], fault.bytesWentOut);
    EXPECT_TRUE(driverServes(1));
    letThePrinterForget();
    CliRun again(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(again.exitCode(kBound), 0) << printer.process().errors();
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
    EXPECT_TRUE(driverServes(1));
}

const Fault kFaults[] = {
    {"refuse-busy", {13}, false},
    {"wrong-model", {17}, false},
    {"close@enter", {16}, false},
    {"close@get-file", {16}, false},
    {"close@piece:0", {16}, true},
    {"close@piece:20000", {16}, true},
    {"close@last-block", {16}, true},
    {"close@status", {16}, true},
    {"close@exit", {0}, true},
    {"reset@enter", {16}, false},
    {"reset@piece:20000", {16}, true},
    {"reset@last-block", {16}, true},
    {"halt-out@enter", {15}, false},
    {"halt-out@piece:20000", {16}, true},
    {"halt-out@status", {15}, true},
    {"halt-in@enter", {16}, false},
    {"halt-in@get-file", {16}, false},
    {"halt-in@last-block", {16}, true},
    {"halt-in@status", {16}, true},
    {"halt-in@exit", {0}, true},
    {"empty-packet@enter", {0}, true},
    {"empty-packet@get-file", {0}, true},
    {"empty-packet@last-block", {0}, true},
    {"empty-packet@status", {0}, true},
    {"stall@enter", {15}, false},
    {"stall@piece:20000", {16}, true},
    {"stall@last-block", {15}, true},
    {"silent@enter", {15}, false},
    {"silent@get-file", {15}, false},
    {"silent@piece:20000", {15}, true},
    {"silent@status", {15}, true},
    {"garbage@enter", {15}, false},
    {"garbage@last-block", {15}, true},
    {"short-reply@enter", {15}, false},
    {"split-reply@enter", {16}, false},
    {"split-body@enter", {0}, true},
    {"oversized@enter", {15}, false},
    {"length-lie@enter", {15}, false},
    {"drip@enter", {16}, false},
    {"endless", {15}, false},
    {"bad-checksum", {12}, false},
    {"status-0803@piece", {11}, true},
    {"status-0804@last-block", {12}, true},
};

INSTANTIATE_TEST_SUITE_P(AtEveryStage, BusFault, ::testing::ValuesIn(kFaults), nameOf);

// A late answer to a piece stays in the pipe until the next packet's reader finds it. The second
// firmware begins with such an answer; its last block is refused.
TEST(LateAnswer, DoesNotHideARefusalFromAStatusQuery)
{
    const PackageFolder package({{"MAIN", "AB010200", 20000}, {"BOOT", "AB010200", 4000}});
    BusPrinter printer({"--firmware", "MAIN=AB010100", "--firmware", "BOOT=AB010100",
                        "--reply-delay", "8", "--fault", "status-0804@last-block:2"});
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(kBound), 12) << run.process().out() << printer.transcript();
}

TEST(LateAnswer, DoesNotHideARefusalOfAPrinterThatReportsNoStatus)
{
    const PackageFolder package({{"MAIN", "AB010200", 20000}, {"BOOT", "AB010200", 4000}});
    BusPrinter printer({"--firmware", "MAIN=AB010100", "--firmware", "BOOT=AB010100",
                        "--no-status-query", "--reply-delay", "8", "--fault",
                        "status-0804@last-block:2"});
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(kBound), 12) << run.process().out() << printer.transcript();
}

TEST(PrinterThatIsPulledOutAndComesBack, IsUpdatedByTheNextRunAtOnce)
{
    const PackageFolder package({{"MAIN", "AB010200", 50000}});
    BusPrinter printer({"--firmware", "MAIN=AB010100", "--fault", "reset@piece:20000",
                        "--faulty-connections", "1"});
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(kBound), 16);
    EXPECT_TRUE(driverServes(1));
    CliRun second(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(second.exitCode(kBound), 0) << second.process().out();
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
}

TEST(UpdateThatIsStopped, GivesTheInterfaceBack)
{
    const PackageFolder package({{"MAIN", "AB010200", 20000}});
    BusPrinter printer({"--firmware", "MAIN=AB010100", "--fault", "busy-forever"});
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    ASSERT_TRUE(run.process().waitForOutput("\"writing\"", kBound));
    run.process().signal(SIGTERM);
    EXPECT_EQ(run.exitCode(kBound), 130) << run.process().out();
    EXPECT_TRUE(driverServes(1));
}

// A killed update cannot give the interface back; the next one finds the printer and does that.
TEST(UpdateThatIsKilled, LeavesAPrinterThatTheNextOneUpdates)
{
    const PackageFolder package({{"MAIN", "AB010200", 200000}});
    BusPrinter printer({"--firmware", "MAIN=AB010100"});
    {
        CliRun run(updateOf(printer, package), CliRun::Pauses::full);
        ASSERT_TRUE(run.process().waitForOutput("\"sending\"", kBound));
        std::this_thread::sleep_for(std::chrono::milliseconds(2300)); // in the middle of its data
    }
    letThePrinterForget();
    CliRun second(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(second.exitCode(kBound), 0) << second.process().out();
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
    EXPECT_TRUE(driverServes(1));
}

} // namespace
