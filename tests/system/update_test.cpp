// SPDX-License-Identifier: MIT
// Whole updates: the real command line and engine, and a virtual printer over real sockets.
#include "tests/system/Desk.h"
#include "tests/system/Ways.h"

#include <csignal>

namespace {

using namespace desk;

class WholeUpdate : public ::testing::TestWithParam<Ways> { };

TEST_P(WholeUpdate, BringsEveryByteToThePrinter)
{
    const auto [count, pattern, statusQuery, replies] = GetParam();
    auto firmware = threeFirmware();
    firmware.resize(count);
    const PackageFolder package(firmware, {std::string("SPECIALCMDPATTERN ") + pattern});
    const VirtualPrinter printer(
        listsOlder({statusQuery, "--replies", replies, "--write-rate", "200000"}));
    CliRun run(updateOf(printer, package));
    ASSERT_EQ(run.exitCode(), 0) << run.process().out() << run.process().errors();
    expectStored(printer, package);
    const auto result = run.result();
    EXPECT_EQ(result["name"], "updated");
    EXPECT_EQ(result["next"], "none");
    EXPECT_EQ(result["firmware"].size(), count);
    for (const auto& one : result["firmware"]) {
        EXPECT_EQ(one["sent"], true);
        EXPECT_EQ(one["bytes_sent"], one["bytes_total"]);
        EXPECT_EQ(one["confirmed"], std::string(statusQuery) == "--status-query");
    }
}

INSTANTIATE_TEST_SUITE_P(InEveryWay, WholeUpdate,
                         ::testing::Combine(::testing::Values(1, 3), ::testing::Values("YES", "NO"),
                                            ::testing::Values("--status-query",
                                                              "--no-status-query"),
                                            ::testing::Values("every", "last")),
                         nameOfWay);

class ImageSize : public ::testing::TestWithParam<std::size_t> { };

TEST_P(ImageSize, ArrivesWhole)
{
    for (const char* pattern : {"SPECIALCMDPATTERN NO", "SPECIALCMDPATTERN YES"}) {
        const PackageFolder package({{"MAIN", "AB010200", GetParam()}}, {pattern});
        const VirtualPrinter printer(listsOlder());
        CliRun run(updateOf(printer, package));
        EXPECT_EQ(run.exitCode(), 0) << run.process().out();
        expectStored(printer, package);
    }
}

INSTANTIATE_TEST_SUITE_P(AroundPieces, ImageSize,
                         ::testing::Values(0, 1, kPiece - 1, kPiece, kPiece + 1, 3 * kPiece,
                                           1000000));

TEST(Update, SkipsWhatThePrinterDoesNotListAndSendsTheRest)
{
    const PackageFolder package({{"DICT", "AB010200", 500}, {"MAIN", "AB010200", 5000}});
    const VirtualPrinter printer(listsOlder());
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(), 0);
    const auto result = run.result();
    EXPECT_EQ(result["firmware"][0]["decision"], "skip");
    EXPECT_EQ(result["firmware"][0]["reason"], "not-listed");
    EXPECT_EQ(result["firmware"][0]["sent"], false);
    EXPECT_EQ(result["firmware"][1]["sent"], true);
    EXPECT_EQ(printer.storedFiles(), 1U);
}

// No file or socket of the run may have the number of a closed stream: what is printed would go
// there.
TEST(Update, ArrivesWholeWhenTheStandardStreamsAreClosed)
{
    const PackageFolder package(threeFirmware());
    const VirtualPrinter printer(listsOlder());
    printer.hold();
    CliRun run(updateOf(printer, package), CliRun::Pauses::shortened, {}, CliRun::Streams::closed);
    const auto folder = "/proc/" + std::to_string(run.process().pid()) + "/fd/";
    for (const char* stream : {"0", "1", "2"})
        waitUntil([&] {
            std::error_code none;
            return std::filesystem::read_symlink(folder + stream, none) == "/dev/null";
        });
    printer.goOn();
    EXPECT_EQ(run.exitCode(), 0);
    expectStored(printer, package);
    EXPECT_EQ(run.process().out(), "");
    EXPECT_NE(run.log().find("result: 1 updated"), std::string::npos) << run.log();
}

TEST(Update, LeavesALogThatSaysHowFarItCameWhenItIsKilled)
{
    const PackageFolder package({{"MAIN", "AB010200", 500000}});
    const VirtualPrinter printer(listsOlder({"--status-query", "--write-rate", "1000"}));
    CliRun run(updateOf(printer, package));
    ASSERT_TRUE(run.process().waitForOutput("writing", kSoon));
    run.process().signal(SIGKILL);
    EXPECT_EQ(run.exitCode(), 128 + SIGKILL);
    const auto log = run.log();
    EXPECT_NE(log.find("address: " + printer.address() + "\n"), std::string::npos) << log;
    EXPECT_NE(log.find(": writing, firmware 1 "), std::string::npos) << log;
    EXPECT_EQ(log.find("ended:"), std::string::npos) << log;
}

TEST(Update, EndsWithNothingToUpdateWhenThePrinterIsUpToDate)
{
    const PackageFolder package({{"MAIN", "AB010100", 5000}});
    const VirtualPrinter printer(listsOlder());
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(), 2);
    EXPECT_EQ(run.result()["next"], "none");
    EXPECT_EQ(run.result()["firmware_bytes_sent"], false);
    EXPECT_EQ(printer.storedFiles(), 0U);
}

TEST(Update, ClaimsNoUpdateForVersionsOfAnotherSeries)
{
    const PackageFolder package({{"MAIN", "XY010200", 5000}});
    const VirtualPrinter printer(listsOlder({"--no-status-query"}));
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(), 2) << run.process().out();
    EXPECT_EQ(run.result()["firmware"][0]["reason"], "other-series");
    EXPECT_EQ(printer.storedFiles(), 0U);
}

TEST(Update, RefusesAPrinterThatIsTooOldForIt)
{
    const PackageFolder package({{"MAIN", "AB010300", 5000, "COMPATIBLE=AB010200"}});
    const VirtualPrinter printer(listsOlder());
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(), 22);
    EXPECT_EQ(run.result()["next"], "choose-other-package");
}

TEST(Update, ArrivesOverALinkWhoseAnswersComeLate)
{
    for (const char* delay : {"15", "60", "300"}) {
        const PackageFolder package(threeFirmware(), {"UPDATETIME 5"});
        const VirtualPrinter printer(listsOlder({"--reply-delay", delay}));
        CliRun run(updateOf(printer, package));
        EXPECT_EQ(run.exitCode(), 0) << delay << run.process().out();
        expectStored(printer, package);
    }
}

TEST(Update, WaitsForAPrinterThatWritesSlowly)
{
    const PackageFolder package({{"MAIN", "AB010200", 50000}});
    const VirtualPrinter printer(listsOlder({"--write-rate", "10000"}));
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(), 0);
    bool writing = false;
    for (const auto& line : run.lines())
        writing = writing || line.value("state_name", "") == "writing";
    EXPECT_TRUE(writing);
}

TEST(Update, RunsOnTwentyPrintersAtOnce)
{
    const PackageFolder package(threeFirmware());
    std::vector<std::unique_ptr<VirtualPrinter>> printers;
    std::vector<std::unique_ptr<CliRun>> runs;
    const TempFolder store;
    const auto network = "127." + std::to_string(ownNetwork()) + ".0.";
    std::vector<std::string> command{VYMPRINTER, "--listen", network + "1:48350",   "--count",
                                     "20",       "--store",  store.path().string(), "--model",
                                     "MODEL-A"};
    const auto options = listsOlder({"--write-rate", "100000"});
    command.insert(command.end(), options.begin(), options.end());
    Process printer(command);
    ASSERT_TRUE(printer.waitForOutput(network + "20:", kSoon));
    for (int i = 1; i <= 20; ++i)
        runs.push_back(std::make_unique<CliRun>(
            std::vector<std::string>{"update", "--address", network + std::to_string(i),
                                     "--package", package.path(), "--yes", "--json"}));
    for (int i = 1; i <= 20; ++i) {
        EXPECT_EQ(runs[static_cast<std::size_t>(i - 1)]->exitCode(), 0) << i;
        const auto folder = store.path() / (network + std::to_string(i));
        EXPECT_TRUE(readFile(folder / "MAIN.FW") == package.bytesOf(0)) << i;
    }
}

TEST(Update, LeavesASecondUpdaterOutside)
{
    const PackageFolder package({{"MAIN", "AB010200", 50000}}, {"UPDATETIME 60"});
    const VirtualPrinter printer(listsOlder({"--write-rate", "10000"}));
    CliRun first(updateOf(printer, package));
    ASSERT_TRUE(first.process().waitForOutput("\"writing\"", kSoon));
    printer.hold();
    CliRun second(updateOf(printer, package));
    EXPECT_EQ(second.exitCode(), 13) << second.process().out();
    printer.goOn();
    EXPECT_EQ(second.result()["next"], "retry");
    EXPECT_EQ(first.exitCode(), 0);
    expectStored(printer, package);
}

TEST(Update, KeepsItsMandatedPausesInTheProgramThatUsersGet)
{
    if (VYMKIT_TEST_SLOWNESS > 2)
        GTEST_SKIP() << "under a sanitizer a printer may need more than that program's second";
    const PackageFolder package({{"MAIN", "AB010200", 20000}, {"BOOT", "01.20", 100}},
                                {"ENTERTIME 30", "EXITTIME 30", "UPDATETIME 30"});
    const VirtualPrinter printer(listsOlder());
    const auto start = std::chrono::steady_clock::now();
    CliRun run(updateOf(printer, package), CliRun::Pauses::full);
    EXPECT_EQ(run.exitCode(), 0) << run.process().out();
    // 2 s before the first packet; for each firmware before the check, before and after the data.
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(14));
    expectStored(printer, package);
}

TEST(Check, SaysWhatAnUpdateWouldDoAndSendsNoFirmware)
{
    const PackageFolder package(
        {{"MAIN", "AB010200", 500}, {"DICT", "01.00", 500}, {"BOOT", "01.00", 500}});
    const VirtualPrinter printer(listsOlder());
    CliRun run({"check", "--address", printer.address(), "--package", package.path(), "--json"});
    EXPECT_EQ(run.exitCode(), 0) << run.process().out() << run.process().errors();
    const auto firmware = run.result()["firmware"];
    ASSERT_EQ(firmware.size(), 3U);
    EXPECT_EQ(firmware[0]["decision"], "send");
    EXPECT_EQ(firmware[0]["installed_version"], "AB010100");
    EXPECT_EQ(firmware[1]["reason"], "not-listed");
    EXPECT_EQ(firmware[2]["reason"], "not-newer");
    EXPECT_EQ(printer.storedFiles(), 0U);
    EXPECT_EQ(printer.transcript().find("send"), std::string::npos) << printer.transcript();
}

TEST(Check, PredictsWhatAnUpdateLeavesOut)
{
    const PackageFolder package({{"MAIN", "AB010200"}, {"BOOT", "01.20", 100}, {"FONT", "AB01"}},
                                {"ALLOWVERSIONDOWN BOTH"});
    const VirtualPrinter printer(
        {"--firmware", "MAIN=AB010200", "--firmware", "BOOT=01.10", "--firmware", "FONT=AB01"});
    const std::vector<std::string> more = {"--only", "main", "--only", "BOOT", "--skip-same"};
    auto update = updateOf(printer, package);
    update.insert(update.end(), more.begin(), more.end());
    auto check = update;
    check[0] = "check";
    std::erase(check, "--yes");
    const auto predicted = CliRun(check).result();
    const auto done = CliRun(update).result();
    const char* reasons[] = {"same-version", "applies", "not-chosen"};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(predicted["firmware"][i]["reason"], reasons[i]);
        EXPECT_EQ(done["firmware"][i]["reason"], reasons[i]);
        EXPECT_EQ(done["firmware"][i]["sent"], i == 1);
    }
    EXPECT_EQ(done["name"], "updated");
    EXPECT_EQ(printer.storedFiles(), 1U);
}

TEST(Check, EndsWithTheRefusalsCode)
{
    const PackageFolder package({{"MAIN", "AB010200", 500}});
    const VirtualPrinter other(listsOlder({"--fault", "wrong-model"}));
    CliRun run({"check", "--address", other.address(), "--package", package.path(), "--json"});
    EXPECT_EQ(run.exitCode(), 17);
    EXPECT_EQ(run.result()["next"], "choose-other-package");
}

TEST(Check, FindsNothingToSend)
{
    const PackageFolder package({{"MAIN", "AB010100", 500}});
    const VirtualPrinter printer(listsOlder());
    CliRun run({"check", "--address", printer.address(), "--package", package.path(), "--json"});
    EXPECT_EQ(run.exitCode(), 2);
}

} // namespace
