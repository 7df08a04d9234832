// SPDX-License-Identifier: MIT
// Calls for many printers that end before any process starts; whole ones are in tests/system.
#include "CLI/Fleet/FleetCommand.h"
#include "tests/CLI/CommandRun.h"
#include "tests/CLI/PrintersRun.h"

#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

// A call for many printers starts its own program once for each. Where a fault makes one of these
// tests start printers, that program is this one: it must not run all tests, these among them,
// again.
[[maybe_unused]] const bool kIsNoMember = [] {
    if (std::getenv("VYMKIT_FLEET_MEMBER") != nullptr)
        _exit(70);
    return true;
}();

std::string resultOf(const std::string& printer, int exitCode, const std::string& next)
{
    return R"({"type":"result","printer":")" + printer + R"(","command":"update","exit_code":)"
        + std::to_string(exitCode) + R"(,"next":")" + next + R"(","message":"Words of )" + printer
        + "\"}\n";
}

class FleetCommand : public ::testing::Test, public CommandRun {
protected:
    int update(std::vector<std::string> words)
    {
        words.insert(words.begin(), {"update", "--yes", "--json"});
        return runOnPackage(std::move(words));
    }
    std::string list(const std::string& text)
    {
        folder.write("list", text);
        return folder / "list";
    }
};

} // namespace

TEST_F(FleetCommand, ABadLineOfTheListStopsEverything)
{
    EXPECT_EQ(update({"--from", list("192.0.2.7\n1.2.3\n")}), 64);
    EXPECT_THAT(out, HasSubstr("Line 2 of the list: '1.2.3'"));
    EXPECT_THAT(out, EndsWith("\"printer\":null}\n"));
    EXPECT_EQ(worker.port, "");
}

TEST_F(FleetCommand, AListThatCannotBeReadIsWrongUsage)
{
    EXPECT_EQ(update({"--from", folder / "gone"}), 64);
    EXPECT_THAT(out, HasSubstr("'FOLDER/gone' cannot be read: No such file"));
}

TEST_F(FleetCommand, AnEmptyListNamesNoSuchPrinter)
{
    EXPECT_EQ(update({"--from", list("# nothing yet\n\n")}), 68);
    EXPECT_THAT(out, HasSubstr("\"name\":\"no-such-printer\""));
    standardInput = open("/dev/null", O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(update({"--from", "-"}), 68);
    close(standardInput);
}

// The standard input of a program is number 0; that of a test is another one.
TEST_F(FleetCommand, AListIsReadFromTheStandardInputItself)
{
    const int kept = dup(STDIN_FILENO);
    const int file = open(list("# nothing yet\n").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(dup2(file, STDIN_FILENO), STDIN_FILENO);
    standardInput = STDIN_FILENO;
    EXPECT_EQ(update({"--from", "-"}), 68) << out;
    dup2(kept, STDIN_FILENO);
    close(kept);
    close(file);
}

TEST_F(FleetCommand, AllOfNoPrintersIsNoSuchPrinterEither)
{
    EXPECT_EQ(update({"--all"}), 68);
    EXPECT_THAT(out, HasSubstr("No printer can be updated from this package"));
}

TEST_F(FleetCommand, ResultsThatCannotBeWrittenAreWrongUsage)
{
    EXPECT_EQ(update({"-a", "192.0.2.7", "--results", "/nowhere/results"}), 64);
    EXPECT_THAT(out, HasSubstr("cannot be written to '/nowhere/results': No such file"));
}

TEST_F(FleetCommand, ANameThatThePackageLacksStopsEverything)
{
    EXPECT_EQ(update({"-a", "192.0.2.7", "-a", "192.0.2.8", "--only", "FONT"}), 64);
    EXPECT_THAT(out, EndsWith("\"printer\":null}\n"));
}

TEST_F(FleetCommand, SkipsWhatEndedWellAndLeavesAloneWhatNeedsAPerson)
{
    folder.write("results", resultOf("192.0.2.7", 0, "none") + resultOf("192.0.2.8", 2, "none"));
    const auto results = folder / "results";
    EXPECT_EQ(
        update({"-a", "192.0.2.7", "-a", "192.0.2.8", "-a", "192.0.2.7", "--results", results}), 0);
    EXPECT_THAT(out,
                HasSubstr(R"("skipped":["192.0.2.7","192.0.2.8"],"same_device":["192.0.2.7"])"));
    EXPECT_THAT(out, HasSubstr("\"name\":\"nothing-to-update\""));
    folder.write("results",
                 resultOf("192.0.2.7", 0, "none") + resultOf("192.0.2.9", 16, "check-printer")
                     + resultOf("192.0.2.8", 17, "choose-other-package"));
    EXPECT_EQ(update({"--from", list("192.0.2.7\n192.0.2.8\n192.0.2.9\n"), "--results", results}),
              1);
    EXPECT_THAT(out,
                HasSubstr(R"("left_alone":["192.0.2.8","192.0.2.9"],"skipped":["192.0.2.7"])"));
    EXPECT_THAT(out, HasSubstr(R"("next":"check-printer")"));
    EXPECT_THAT(out, HasSubstr("1 skipped, because they ended well before."));
}

TEST_F(FleetCommand, ShowsAPersonWhichPrintersNeedOne)
{
    folder.write("results", resultOf("192.0.2.8", 17, "choose-other-package"));
    EXPECT_EQ(runOnPackage({"update", "--yes", "-a", "192.0.2.8", "--results", folder / "results"}),
              1);
    EXPECT_EQ(out, "left_alone: 192.0.2.8: Words of 192.0.2.8\n");
    EXPECT_THAT(err, HasSubstr("Failed: 1 left alone"));
}

TEST_F(FleetCommand, APersonIsAskedOnceOrNotAtAll)
{
    EXPECT_EQ(runOnPackage({"update", "-a", "192.0.2.7", "-a", "192.0.2.8", "--json"}), 64);
    EXPECT_THAT(out, HasSubstr("add --yes"));
    EXPECT_EQ(runOnPackage({"update", "--from", "-"}), 64);
}

TEST_F(FleetCommand, ARecordIsTheResultWithThePrinter)
{
    Outcome outcome;
    outcome.command = Command::update;
    recordEnd({"hall", folder / "results", std::nullopt}, outcome);
    EXPECT_THAT(readFile(folder / "results"),
                testing::StartsWith(R"({"type":"result","printer":"hall","schema_version":1)"));
    EXPECT_EQ(outcome.warning, "");
    recordEnd({"hall", "/nowhere/results", std::nullopt}, outcome);
    EXPECT_THAT(outcome.warning, HasSubstr("could not be recorded: No such file"));
    recordEnd({"hall", std::nullopt, std::nullopt}, outcome);
}

TEST(FleetOfQueues, APrintServerThatDoesNotAnswerLeavesAllUnknown)
{
    Printers printers;
    printers.server.refuse("it is off");
    EXPECT_EQ(printers.runOnPackage({"check", "--all", "--json"}), 69);
    EXPECT_THAT(printers.out, HasSubstr("\"name\":\"print-server-unreachable\""));
}

TEST(FleetOfQueues, AProcessTakesTheQueueThatItsCallHasFound)
{
    CommandRun run;
    const auto variable = asEnvironment(
        {"office", std::nullopt, PrintQueue{"Office", "office", {}, "net:192.0.2.7", "Acme 1"}});
    const auto equals = variable.find('=');
    setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
    run.runOnPackage({"check", "--printer=office", "--json"});
    unsetenv(variable.substr(0, equals).c_str());
    EXPECT_EQ(run.worker.port, "lpd://192.0.2.7/");
    EXPECT_EQ(run.worker.queue, "office");
    EXPECT_THAT(run.out, HasSubstr(R"("printer_name":"Office")"));
}
