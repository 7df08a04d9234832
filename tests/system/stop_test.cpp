// Stops an update at every stage: a transfer is never cut, and the run reports that.
#include "tests/system/Desk.h"

#include <csignal>
#include <thread>

namespace {

using namespace desk;

constexpr std::chrono::seconds kSoon{30};

std::vector<std::string> slowPrinter(std::vector<std::string> more = {})
{
    std::vector<std::string> options{"--firmware", "MAIN=AB010100", "--firmware", "BOOT=AB010100"};
    options.insert(options.end(), more.begin(), more.end());
    return options;
}

TEST(Stop, BeforeTheFirstFirmwareSendsNothing)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}}, {"ENTERTIME 10"});
    const VirtualPrinter printer(slowPrinter({"--reply-delay", "900"}));
    CliRun run(updateOf(printer, package));
    ASSERT_TRUE(run.process().waitForOutput("\"starting\"", kSoon));
    run.process().signal(SIGINT);
    EXPECT_EQ(run.exitCode(), 130) << run.process().out();
    const auto result = run.result();
    EXPECT_EQ(result["firmware_bytes_sent"], false);
    EXPECT_EQ(result["next"], "retry");
    EXPECT_EQ(printer.storedFiles(), 0U);
}

TEST(Stop, WhileThePrinterWritesStillSendsTheRestAndAsksForAPersonToLook)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
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

TEST(Stop, WhileACheckWaitsLeavesDownloadMode)
{
    const PackageFolder package({{"MAIN", "AB010200", 5000}}, {"ENTERTIME 10"});
    const VirtualPrinter printer(slowPrinter({"--reply-delay", "900"}));
    CliRun run({"check", "--address", printer.address(), "--package", package.path(), "--json"});
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    run.process().signal(SIGINT);
    EXPECT_EQ(run.exitCode(), 130) << run.process().out();
    EXPECT_EQ(printer.storedFiles(), 0U);
}

} // namespace
