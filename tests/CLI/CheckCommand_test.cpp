// SPDX-License-Identifier: MIT
#include "DevConn/LinkTrace.h"
#include "tests/CLI/CommandRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

CheckedEntry entry(std::uint32_t number, VersionDecision decision, std::string installed,
                   bool reached = true)
{
    return {number, "any", "any", std::move(installed), decision, reached};
}

constexpr VersionDecision kSend = {true, 1, VersionReason::applies};
constexpr VersionDecision kNotNewer = {false, -11, VersionReason::notNewer};
constexpr VersionDecision kNotListed = {false, -11, VersionReason::notListed};
constexpr VersionDecision kOtherSeries = {false, 1, VersionReason::otherSeries};
constexpr VersionDecision kNoRule = {false, 1, VersionReason::noRule};
constexpr VersionDecision kTooOld = {false, -12, VersionReason::tooOld};
constexpr VersionDecision kOtherModel = {false, -7, VersionReason::otherModel};
constexpr VersionDecision kUnreadable = {false, -5, VersionReason::unreadableVersion};

// A check of a printer that decided so.
class Check : public CommandRun {
public:
    explicit Check(std::vector<CheckedEntry> entries)
    {
        worker.report = {1, "Model 100", std::move(entries)};
    }
    int text() { return runOnPackage({"check", "--address", "192.0.2.7"}); }
    int json() { return runOnPackage({"check", "--address", "192.0.2.7", "--json"}); }
};

} // namespace

TEST(CheckCommand, ReportsWhatAnUpdateWouldSend)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kNotNewer, "VE010105")});
    EXPECT_EQ(check.text(), 0);
    EXPECT_EQ(check.worker.port, "192.0.2.7");
    EXPECT_EQ(check.worker.portNumber, 48350);
    expectGolden("check-available.txt", check.out);
    EXPECT_EQ(check.err, "Asking the printer\n");
    EXPECT_EQ(check.json(), 0);
    expectGolden("check-available.json", check.out);
}

TEST(CheckCommand, ReportsThatThereIsNothingToUpdate)
{
    Check check({entry(1, kOtherSeries, "XX010200"), entry(2, kNotListed, "")});
    EXPECT_EQ(check.text(), 2);
    expectGolden("check-nothing.txt", check.out);
    EXPECT_EQ(check.json(), 2);
    expectGolden("check-nothing.json", check.out);
}

TEST(CheckCommand, WarnsWhereOnlyThePrinterDecidesWhetherAnUpdateGoesOn)
{
    for (const auto& decision : {kOtherSeries, kNoRule}) {
        Check check({entry(1, decision, "XX010200"), entry(2, kSend, "VE010100")});
        EXPECT_EQ(check.text(), 0);
        EXPECT_EQ(check.out.find("Warning"), std::string::npos); // it queries no status
        check.worker.report.reportsWriting = true;
        EXPECT_EQ(check.text(), 0);
        EXPECT_THAT(check.out,
                    HasSubstr("Warning: firmware 1 (Main controller): Only the printer "
                              "decides whether an update goes on"));
        EXPECT_EQ(check.json(), 0);
        EXPECT_THAT(check.out, HasSubstr(R"("warning":"Only the printer decides)"));
        EXPECT_THAT(check.out, HasSubstr(R"("confirmed":false,"warning":null,)"));
    }
}

TEST(CheckCommand, CallsAFirmwareThatTheRuleNeverSendsNotNotNewer)
{
    Check check({entry(1, kNoRule, "01.10"), entry(2, kNotListed, "")});
    EXPECT_EQ(check.text(), 2);
    EXPECT_THAT(check.out, HasSubstr("skip it: the package's version rule never sends"));
    EXPECT_EQ(check.json(), 2);
    EXPECT_THAT(check.out, HasSubstr(R"("decision":"skip","reason":"no-rule")"));
}

TEST(CheckCommand, LeavesOutFirmwareOnRequest)
{
    Check check({entry(1, {false, -11, VersionReason::notChosen}, ""),
                 entry(2, {false, -11, VersionReason::sameVersion}, "VE010105")});
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--only", "engine", "--skip-same"}),
              2);
    EXPECT_EQ(check.worker.choice.only, (std::vector<std::uint32_t>{2}));
    EXPECT_TRUE(check.worker.choice.skipSame);
    EXPECT_THAT(check.out, HasSubstr("skip it: not among those chosen with --only"));
    EXPECT_THAT(check.out, HasSubstr("skip it: this version is installed"));
    EXPECT_EQ(check.json(), 2);
    EXPECT_THAT(check.out, HasSubstr(R"("decision":"skip","reason":"not-chosen")"));
    EXPECT_THAT(check.out, HasSubstr(R"("decision":"skip","reason":"same-version")"));
}

TEST(CheckCommand, ANameThatThePackageLacksIsWrongUsage)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kSend, "VE010100")});
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--only", "FONT"}), 64);
    EXPECT_THAT(check.err, HasSubstr("The package has MAIN, ENGINE."));
    EXPECT_EQ(check.worker.port, ""); // no printer was queried
}

TEST(CheckCommand, KnowsTheSizeOfEachImage)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kNotListed, "")});
    EXPECT_EQ(check.json(), 0);
    EXPECT_THAT(check.out, HasSubstr(R"("bytes_sent":0,"bytes_total":3145728,)"));
    EXPECT_THAT(check.out, HasSubstr(R"("bytes_sent":0,"bytes_total":700,)"));
}

TEST(CheckCommand, WarnsOfASystemThatTheWindowWouldRefuse)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kNotListed, "")});
    check.package.systemBounds = {{0x1040, 0x1060}};
    EXPECT_EQ(check.text(), 0);
    EXPECT_THAT(check.err,
                StartsWith("Warning: The package is for systems with a version from "
                           "10.4.0 to 10.6.0. This system has version 12.0.0."));
    EXPECT_EQ(check.json(), 0);
    EXPECT_THAT(check.out, HasSubstr(R"("warning":"The package is for systems)"));
    EXPECT_EQ(check.err, "");
    check.worker.systemVersion = 0x900; // cannot be compared
    EXPECT_EQ(check.json(), 0);
    EXPECT_THAT(check.out,
                testing::EndsWith("\"udev_rule\":null,\"warning\":null,\"verdict\":null}\n"));
}

TEST(CheckCommand, ARefusalEndsWithItsCode)
{
    const struct {
        VersionDecision decision;
        int exitCode;
        const char* name;
        const char* message;
    } rows[] = {
        {kTooOld, 22, "too-old", "is too old for this package"},
        {kOtherModel, 17, "other-model", "is for the model Model 100; the printer"},
        {kUnreadable, 15, "bad-reply", "cannot be compared"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Check check({entry(1, row.decision, "VP000100"), entry(2, kSend, "VE010100", false)});
        EXPECT_EQ(check.text(), row.exitCode);
        EXPECT_THAT(check.err, HasSubstr("\nRefused ("));
        EXPECT_THAT(check.err, HasSubstr(row.message));
        expectGolden("check-" + std::string(row.name) + ".txt", check.out + check.err);
        EXPECT_EQ(check.json(), row.exitCode);
        EXPECT_THAT(check.out, HasSubstr("\"name\":\"" + std::string(row.name)));
        EXPECT_THAT(check.out, HasSubstr(R"("next":"choose-other-package")"));
    }
}

TEST(CheckCommand, ARefusalAfterFirmwareToSendCountsToo)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kTooOld, "VE000100")});
    EXPECT_EQ(check.json(), 22);
}

TEST(CheckCommand, AFirmwareThatIsNotReachedDecidesNothing)
{
    Check check({entry(1, kNotNewer, "VP010210"), entry(2, kSend, "VE000100", false)});
    EXPECT_EQ(check.json(), 2);
}

TEST(CheckCommand, EndsWithTheCodeOfAnError)
{
    const struct {
        int result;
        int exitCode;
        const char* message;
    } rows[] = {
        {-1, 11, "reported an error"},
        {-3, 13, "is busy"},
        {-4, 14, "a fax"},
        {-5, 15, "none that was expected"},
        {-6, 16, "no connection"},
        {-9, 19, "could not go on during the check"},
    };
    for (const auto& row : rows) {
        Check check({});
        check.worker.report.result = row.result;
        EXPECT_EQ(check.text(), row.exitCode);
        EXPECT_THAT(check.err, HasSubstr(row.message));
        EXPECT_EQ(check.json(), row.exitCode);
        EXPECT_THAT(check.out, HasSubstr(R"("next":"retry")"));
    }
}

TEST(CheckCommand, ShowsNoControlCharactersOfAPrinter)
{
    Check check({entry(1, kSend, "\x1b[31m"), entry(2, kSend, std::string(5000, '\x9b'))});
    check.worker.report.printerModel = "\x1b]0;title\x07";
    EXPECT_EQ(check.text(), 0);
    EXPECT_EQ(check.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(check.out.find('\x9b'), std::string::npos);
    EXPECT_LT(check.out.size(), 2000U);
    EXPECT_EQ(check.json(), 0);
    EXPECT_THAT(check.out, HasSubstr(R"("printer_model":"\\x1b]0;title\\x07")"));
}

TEST(CheckCommand, ASignalStopsItBetweenTwoQuestions)
{
    Check check({});
    check.worker.duringCheck = [](const std::atomic<bool>& stop) {
        kill(getpid(), SIGTERM);
        while (!stop)
            std::this_thread::yield();
    };
    EXPECT_EQ(check.json(), 130);
    expectGolden("check-stopped.json", check.out);
}

TEST(CheckCommand, TheTimeLimitStopsItToo)
{
    Check check({});
    check.worker.duringCheck = [](const std::atomic<bool>& stop) {
        pauseMilliseconds(5000);
        while (!stop)
            std::this_thread::yield();
    };
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--deadline", "4"}), 130);
    EXPECT_THAT(check.err, HasSubstr("Stopped: The time limit was reached"));
}

TEST(CheckCommand, AStopThatCameTooLateChangesNothing)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kSend, "VE010100")});
    check.worker.duringCheck = [](const std::atomic<bool>& stop) {
        kill(getpid(), SIGINT);
        while (!stop)
            std::this_thread::yield();
    };
    EXPECT_EQ(check.json(), 0);
}

TEST(CheckCommand, WritesATraceOnRequest)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kSend, "VE010100")});
    check.worker.duringCheck = [](const std::atomic<bool>&) {
        linkTrace()->connected("192.0.2.7", 9100, ConnectProblem::none, 0);
    };
    const auto trace = check.folder / "trace";
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--trace", trace}), 0);
    EXPECT_THAT(readFile(trace), HasSubstr(" connect 192.0.2.7 port 9100: connected\n"));
    EXPECT_EQ(check.err.find("connect 192"), std::string::npos);
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--json", "--verbose"}), 0);
    EXPECT_THAT(check.err, HasSubstr(" connect 192.0.2.7 port 9100: connected\n"));
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--trace", "/nowhere/trace"}), 64);
    EXPECT_THAT(check.err, HasSubstr("cannot be written to '/nowhere/trace': No such file"));
}

TEST(CheckCommand, StaysQuietOnRequest)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kSend, "VE010100")});
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--quiet"}), 0);
    EXPECT_EQ(check.err, "");
    EXPECT_THAT(check.out, StartsWith("Update available: "));
}

TEST(CheckCommand, ShowsDebugTextsOnlyOnRequestAndHarmless)
{
    Check check({entry(1, kSend, "VP010200"), entry(2, kSend, "VE010100")});
    check.worker.duringCheck = [](const std::atomic<bool>&) { outputDebugMsg("a\x1b[0m", 1); };
    EXPECT_EQ(check.json(), 0);
    EXPECT_EQ(check.err, "");
    EXPECT_EQ(check.runOnPackage({"check", "-a", "192.0.2.7", "--json", "--verbose"}), 0);
    EXPECT_EQ(check.err, "debug: a\\x1b[0m\n");
    EXPECT_THAT(check.out, StartsWith("{"));
}
