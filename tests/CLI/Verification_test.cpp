// SPDX-License-Identifier: MIT
// Whole updates that are verified afterwards.
#include "tests/CLI/CommandRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::HasSubstr;

namespace {

CheckReport reportOf(const char* installed)
{
    CheckReport report{1, "Model 100", {}};
    report.entries = {
        {1, "MAIN", "VP010210", installed, {true, 1, VersionReason::applies}, true},
        {2, "ENGINE", "VE010105", "VE000100", {true, 1, VersionReason::applies}, true}};
    return report;
}

// An update that sends the first of two firmware; then a check a second, as the test says.
class Verified : public CommandRun {
public:
    Verified()
    {
        worker.records = {status(state_initial), status(state_done, 1, "MAIN.BIN", 0, 0, 1)};
        worker.outcomes = {confirmed(1, 4000),
                           {2, -11, VersionReason::notNewer, false, false, 0, 0}};
        worker.report = reportOf("VP010210");
        worker.duringCheck = [this](const std::atomic<bool>&) {
            pauseMilliseconds(1000);
            ++checks;
        };
    }
    int run()
    {
        return runOnPackage({"update", "-a", "192.0.2.7", "--yes", "--verify", "5", "--json"});
    }
    int checks = 0;
};

} // namespace

TEST(Verification, IsDoneWhenThePrinterHasWhatWasSent)
{
    Verified update;
    EXPECT_EQ(update.run(), 0);
    EXPECT_EQ(update.checks, 1);
    EXPECT_THAT(update.out, HasSubstr(R"("verdict":"verified"})"));
    EXPECT_THAT(update.out, HasSubstr(R"("name":"updated")"));
    EXPECT_THAT(update.out, HasSubstr(R"("installed_after":"VP010210")"));
}

TEST(Verification, WaitsForAPrinterThatIsAwayOrStillHasTheOldVersion)
{
    Verified update;
    update.worker.report = {-6, "", {}};
    update.worker.duringCheck = [&update](const std::atomic<bool>&) {
        pauseMilliseconds(1000);
        ++update.checks;
        if (update.checks == 2)
            update.worker.report = reportOf("VP010100");
        if (update.checks == 3)
            update.worker.report = reportOf("vp010210");
    };
    EXPECT_EQ(update.run(), 0);
    EXPECT_EQ(update.checks, 3);
    EXPECT_THAT(update.out, HasSubstr(R"("verdict":"verified"})"));
}

TEST(Verification, SaysThatThePrinterDidNotComeBack)
{
    Verified update;
    update.worker.report = {-6, "", {}};
    EXPECT_EQ(update.run(), 3);
    EXPECT_THAT(update.out, HasSubstr(R"("exit_code":3,"name":"not-confirmed")"));
    EXPECT_THAT(update.out, HasSubstr(R"("next":"check-printer")"));
    EXPECT_THAT(update.out, HasSubstr(R"("verdict":"not-confirmed"})"));
}

TEST(Verification, SaysThatThePrinterHasAnotherVersion)
{
    Verified update;
    update.worker.report = reportOf("VP010100");
    EXPECT_EQ(update.run(), 4);
    EXPECT_THAT(update.out, HasSubstr(R"("exit_code":4,"name":"not-installed")"));
    EXPECT_THAT(update.out, HasSubstr(R"("installed_after":"VP010100")"));
}

TEST(Verification, EndsWithWhatIsKnownWhenItIsStopped)
{
    Verified update;
    update.worker.report = {-6, "", {}};
    update.worker.duringCheck = [](const std::atomic<bool>& stop) {
        kill(getpid(), SIGINT);
        while (!stop)
            std::this_thread::yield();
    };
    EXPECT_EQ(update.run(), 3);
}

TEST(Verification, HappensOnlyAfterAnUpdateThatEndedWell)
{
    Verified update;
    update.worker.records = {status(state_failed, 0, "", 0, 0, 0, -6)};
    update.worker.outcomes.clear();
    EXPECT_EQ(update.run(), 16);
    EXPECT_EQ(update.checks, 0);
    EXPECT_THAT(update.out, HasSubstr(R"("verdict":null})"));
}

TEST(Verification, SaysWhereAPersonHasToRestartThePrinter)
{
    Verified update;
    update.package.needsExitOperation = yesno_yes;
    EXPECT_EQ(update.runOnPackage({"update", "-a", "192.0.2.7", "--yes", "--verify", "5"}), 0);
    EXPECT_THAT(update.err, HasSubstr("Switch the printer off and on again. Waiting for it"));
    EXPECT_THAT(update.out, HasSubstr("has the versions that were sent"));
}

TEST(Verification, PutsItsVerdictIntoTheLogOfTheRun)
{
    Verified update;
    EXPECT_EQ(update.run(), 0);
    const std::filesystem::directory_iterator logs(update.folder / "state/vymkit");
    EXPECT_THAT(readFile(logs->path()),
                testing::ContainsRegex("\nended: .*\nverdict: verified, .*\n$"));
}

TEST(Verification, PutsABadVerdictIntoTheLogToo)
{
    Verified update;
    update.worker.report = {-6, "", {}};
    EXPECT_EQ(update.run(), 3);
    const std::filesystem::directory_iterator logs(update.folder / "state/vymkit");
    EXPECT_THAT(readFile(logs->path()), HasSubstr("\nverdict: not-confirmed, "));
}
