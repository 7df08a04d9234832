// SPDX-License-Identifier: MIT
// Stops an update at every stage: a transfer is never cut, and the run reports that.
#include "tests/system/Desk.h"

#include <csignal>
#include <sys/resource.h>

namespace {

using namespace desk;

std::vector<std::string> slowPrinter(std::vector<std::string> more = {})
{
    std::vector<std::string> options{"--firmware", "MAIN=AB010100", "--firmware", "BOOT=AB010100"};
    options.insert(options.end(), more.begin(), more.end());
    return options;
}

TEST(Stop, BeforeTheFirstFirmwareSendsNothing)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}}, {"ENTERTIME 10"});
    const VirtualPrinter printer(slowPrinter());
    printer.hold();
    CliRun run(updateOf(printer, package));
    ASSERT_TRUE(run.process().waitForOutput("\"starting\"", kSoon));
    run.process().signal(SIGINT);
    EXPECT_EQ(run.exitCode(), 130) << run.process().out();
    printer.goOn();
    const auto result = run.result();
    EXPECT_EQ(result["firmware_bytes_sent"], false);
    EXPECT_EQ(result["next"], "retry");
    EXPECT_EQ(printer.storedFiles(), 0U);
}

TEST(Stop, WhileThePrinterWritesStillSendsTheRestAndAsksForAPersonToLook)
{
    for (const int signal :
         {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP, SIGUSR1, SIGUSR2, SIGALRM, SIGXCPU}) {
        const PackageFolder package({{"MAIN", "AB010200", 5000}, {"BOOT", "AB010200", 5000}});
        const VirtualPrinter printer(slowPrinter({"--fault", "busy-forever"}));
        CliRun run(updateOf(printer, package));
        ASSERT_TRUE(run.process().waitForOutput("\"writing\"", kSoon));
        run.process().signal(signal);
        run.process().signal(signal); // a second signal changes nothing
        EXPECT_EQ(run.exitCode(), 130) << run.process().out();
        const auto result = run.result();
        EXPECT_EQ(result["firmware_bytes_sent"], true);
        EXPECT_EQ(result["next"], "check-printer");
        EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
        EXPECT_TRUE(printer.stored("BOOT.FW") == package.bytesOf(1));
    }
}

// The limit that a shell or a service sets with its ulimit; here it comes once the run has begun.
TEST(FileSizeLimit, EndsTheLogAndNotTheTransfer)
{
    const PackageFolder package({{"MAIN", "AB010200", 500000}}, {"ENTERTIME 60"});
    const VirtualPrinter printer(slowPrinter());
    printer.hold();
    CliRun run(updateOf(printer, package));
    ASSERT_TRUE(run.process().waitForOutput("\"starting\"", kSoon)) << run.process().out();
    const rlimit none{1, 1}; // byte
    ASSERT_EQ(prlimit(run.process().pid(), RLIMIT_FSIZE, &none, nullptr), 0);
    run.process().signal(SIGXFSZ);
    printer.goOn();
    EXPECT_EQ(run.exitCode(), 0) << run.process().out();
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
    EXPECT_NE(run.log().find("started: "), std::string::npos);
    EXPECT_EQ(run.log().find("ended: "), std::string::npos) << run.log();
}

TEST(Stop, ByDeadlineEndsTheWaitForAPrinterThatNeverFinishesWriting)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}});
    const VirtualPrinter printer(slowPrinter({"--fault", "busy-forever"}));
    auto arguments = updateOf(printer, package);
    arguments.insert(arguments.end(), {"--deadline", "2"});
    CliRun run(arguments);
    EXPECT_EQ(run.exitCode(), 130) << run.process().out();
    EXPECT_EQ(run.result()["next"], "check-printer");
}

// A second or a minute for an answer that never comes; a run that is to stop does not wait for its
// end.
TEST(Stop, BeforeTheFirstFirmwareDoesNotWaitForASilentPrinter)
{
    const struct {
        const char* command;
        const char* fault;
    } rows[] = {{"check", "silent@enter"}, {"update", "silent@get-file"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.command);
        const PackageFolder package({{"MAIN", "AB010200", 5000}}, {"ENTERTIME 60", "EXITTIME 60"});
        const VirtualPrinter printer(slowPrinter({"--fault", row.fault}));
        std::vector<std::string> arguments{row.command,  "--address",    printer.address(),
                                           "--package",  package.path(), "--json",
                                           "--deadline", "0.2"};
        if (row.command == std::string("update"))
            arguments.emplace_back("--yes");
        CliRun run(arguments);
        EXPECT_EQ(run.exitCode(kSoon), 130) << run.process().out();
        EXPECT_EQ(run.result()["firmware_bytes_sent"], false);
        EXPECT_EQ(printer.storedFiles(), 0U);
    }
}

// The name server is silent, and no call of the system ends the wait for it.
TEST(Stop, EndsALookUpThatWouldNeverEnd)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}});
    const std::vector<std::string> update{"update",       "--yes",     "--package",
                                          package.path(), "--address", "printer.example"};
    const Process::Environment silent{"LD_PRELOAD=" SILENT_NAMES};

    CliRun byCtrlC(update, CliRun::Pauses::full, silent);
    ASSERT_TRUE(byCtrlC.process().waitForErrors("Looking up printer.example", kSoon));
    byCtrlC.process().signal(SIGINT);
    EXPECT_EQ(byCtrlC.exitCode(), 130) << byCtrlC.process().errors();
    const auto text = byCtrlC.process().errors() + byCtrlC.process().out();
    EXPECT_NE(text.find("before the printer's address was known"), std::string::npos) << text;

    auto arguments = update;
    arguments.insert(arguments.end(), {"--json", "--deadline", "0.5"});
    CliRun byDeadline(arguments, CliRun::Pauses::full, silent);
    EXPECT_EQ(byDeadline.exitCode(), 130) << byDeadline.process().out();
    EXPECT_EQ(byDeadline.result()["firmware_bytes_sent"], false);
}

TEST(Stop, ASecondUpdateOfThePrinterIsRefusedUntilTheFirstHasEnded)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}});
    const VirtualPrinter printer(slowPrinter({"--fault", "busy-forever"}));
    CliRun first(updateOf(printer, package));
    ASSERT_TRUE(first.process().waitForOutput("\"writing\"", kSoon));
    CliRun second(updateOf(printer, package), CliRun::Pauses::full); // as users run it
    EXPECT_EQ(second.exitCode(), 13) << second.process().out();
    const auto result = second.result();
    EXPECT_EQ(result["name"], "printer-busy");
    EXPECT_NE(std::string(result["message"])
                  .find("Another update of this printer is running here (process "),
              std::string::npos)
        << result["message"];
    EXPECT_EQ(result["firmware_bytes_sent"], false);
    first.process().signal(SIGKILL);
    first.process().wait();
    auto arguments = updateOf(printer, package);
    arguments.insert(arguments.end(), {"--deadline", "2"});
    CliRun third(arguments);
    EXPECT_EQ(third.exitCode(), 130) << third.process().out();
}

// As by a power cut of this computer: nothing says goodbye to the printer.
TEST(Killed, AtAnyStageIsMadeGoodByTheNextUpdate)
{
    // Each fault keeps the first update from ending before it is killed.
    const struct {
        const char* why;
        const char* seen;
        const char* fault;
    } rows[] = {
        {"while it enters", "\"starting\"", nullptr},
        {"while it reads the printer's versions", "\"entered\"", "busy-forever"},
        {"while the last block is answered", "\"bytes_done\":5000,\"bytes_total\":5000",
         "busy-forever"},
        {"while the printer writes", "\"writing\"", "busy-forever"},
        {"while it leaves", "\"finished\"", "silent@exit"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const PackageFolder package({{"MAIN", "AB010200", 5000}}, {"ENTERTIME 60", "EXITTIME 60"});
        std::vector<std::string> more{"--status-query", "--write-rate", "10000", "--reply-delay",
                                      "150"};
        if (row.fault != nullptr)
            more.insert(more.end(), {"--fault", row.fault, "--faulty-connections", "1"});
        const VirtualPrinter printer(slowPrinter(more));
        if (row.fault == nullptr)
            printer.hold();
        CliRun cut(updateOf(printer, package));
        ASSERT_TRUE(cut.process().waitForOutput(row.seen, kSoon)) << cut.process().out();
        cut.process().signal(SIGKILL);
        EXPECT_EQ(cut.exitCode(), 128 + SIGKILL);
        printer.goOn();
        CliRun next(updateOf(printer, package));
        EXPECT_EQ(next.exitCode(), 0) << next.process().out();
        EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
    }
}

TEST(Stop, WhileACheckWaitsLeavesDownloadMode)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}});
    const VirtualPrinter printer(slowPrinter({"--fault", "silent@get-file"}));
    const auto received = [&](const char* command) {
        return printer.transcript().find(command) != std::string::npos;
    };
    CliRun run({"check", "--address", printer.address(), "--package", package.path(), "--json"});
    waitUntil([&] { return received("\tin\t0x5001\t"); });
    run.process().signal(SIGINT);
    EXPECT_EQ(run.exitCode(), 130) << run.process().out();
    waitUntil([&] { return received("\tin\t0x5102\t"); });
    EXPECT_EQ(printer.storedFiles(), 0U);
}

} // namespace
