// SPDX-License-Identifier: MIT
// One call for many printers: real processes, real sockets, and what the printers say they
// received.
#include "tests/system/Desk.h"

#include <algorithm>
#include <csignal>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <unistd.h>

namespace {

using namespace desk;

using Names = std::vector<std::string>;

// "./test long" does this with 1,000 printers, 100 at a time, and the program that users get, in
// about three minutes, nearly all of them pauses.
const char* const kWantedPrinters = std::getenv("VYMKIT_FLEET_PRINTERS");

std::size_t fleetSize()
{
    return kWantedPrinters != nullptr ? std::stoul(kWantedPrinters) : 60;
}

// A call for all of them, on a computer that is busy with other tests.
constexpr std::chrono::seconds kWhole{900};

// With shortened pauses all of them work at once, which a busy computer takes for silence.
std::string jobs()
{
    return kWantedPrinters != nullptr ? "100" : "8";
}

// Virtual printers of one kind on consecutive addresses, in one process.
class PrinterGroup {
public:
    PrinterGroup(std::size_t count, const std::vector<std::string>& more) : m_first(s_used + 1)
    {
        s_used += count;
        std::vector<std::string> command{VYMPRINTER,
                                         "--listen",
                                         address(0) + ":48350",
                                         "--count",
                                         std::to_string(count),
                                         "--store",
                                         m_store.path().string(),
                                         "--max-packet",
                                         "4096"};
        if (std::find(more.begin(), more.end(), "--model") == more.end())
            command.insert(command.end(), {"--model", "MODEL-A"});
        if (std::find(more.begin(), more.end(), "--firmware") == more.end())
            command.insert(command.end(), {"--firmware", "MAIN=AB010100"});
        command.insert(command.end(), more.begin(), more.end());
        m_process = std::make_unique<Process>(command);
        EXPECT_TRUE(m_process->waitForOutput("listening on", kSoon)) << m_process->errors();
        for (std::size_t i = 0; i < count; ++i)
            names.push_back(address(i));
    }

    // How often firmware began to arrive at that printer.
    [[nodiscard]] std::size_t transfers(const std::string& name) const
    {
        const auto path = m_store.path() / name / "transcript.txt";
        std::istringstream text(std::filesystem::exists(path) ? readFile(path) : "");
        std::size_t count = 0;
        for (std::string line; std::getline(text, line);)
            count += line.find("\tin\t0x5002\tMAIN.FW\t0x0000\t0\t") != std::string::npos ? 1 : 0;
        return count;
    }

    Names names;

private:
    [[nodiscard]] std::string address(std::size_t index) const
    {
        const auto number = m_first + index;
        return "127." + std::to_string(ownNetwork()) + "." + std::to_string(number / 256) + "."
            + std::to_string(number % 256);
    }

    static inline std::size_t s_used = 0;
    const std::size_t m_first;
    TempFolder m_store;
    std::unique_ptr<Process> m_process;
};

PackageFolder smallPackage()
{
    return PackageFolder({{"MAIN", "AB010200", 9000}});
}

// One call, with the list of its printers in a file.
class FleetCall {
public:
    FleetCall(const PackageFolder& package, const Names& printers,
              const std::vector<std::string>& more, const char* command = "update")
    {
        std::string text;
        for (const auto& printer : printers)
            text += printer + "\n";
        m_folder.write("list", text);
        std::vector<std::string> words{command,     "--from",       m_folder / "list",
                                       "--package", package.path(), "--json"};
        if (std::string(command) == "update")
            words.emplace_back("--yes");
        words.insert(words.end(), more.begin(), more.end());
        m_run = std::make_unique<CliRun>(
            words, kWantedPrinters != nullptr ? CliRun::Pauses::full : CliRun::Pauses::shortened);
    }
    CliRun& run() { return *m_run; }
    // The names in a class of the summary, sorted.
    Names of(const char* memberClass)
    {
        const auto all = m_run->lines();
        if (all.size() < 2 || all[all.size() - 2]["type"] != "summary") {
            ADD_FAILURE() << "no summary: " << m_run->process().errors();
            return {};
        }
        auto names = all[all.size() - 2][memberClass].get<Names>();
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    TempFolder m_folder;
    std::unique_ptr<CliRun> m_run;
};

Names sorted(Names names)
{
    std::sort(names.begin(), names.end());
    return names;
}

std::map<std::string, std::string> nextOf(const std::string& results)
{
    std::map<std::string, std::string> next;
    std::istringstream text(readFile(results));
    for (std::string line; std::getline(text, line);) {
        const auto json = Json::parse(line, nullptr, false);
        EXPECT_FALSE(json.is_discarded()) << line;
        next[json["printer"]] = json["next"];
    }
    return next;
}

std::size_t linesOf(const std::string& path)
{
    const auto text = readFile(path);
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

// The printers that a file of results has a line of, sorted.
Names printersIn(const std::string& results)
{
    Names names;
    for (const auto& [name, next] : nextOf(results))
        names.push_back(name);
    return names;
}

// Whether a process for one of these printers runs, also one whose call has gone.
bool isAtWork(const Names& printers)
{
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", error)) {
        std::ifstream file(entry.path() / "cmdline", std::ios::binary);
        std::string words;
        std::getline(file, words); // none from a process that ends meanwhile
        for (const auto& printer : printers) {
            if (words.find("--address=" + printer + '\0') != std::string::npos)
                return true;
        }
    }
    return false;
}

TEST(Fleet, CountsEveryPrinterInItsClassAndWritesNoneTwice)
{
    const struct {
        std::vector<std::string> options;
        const char* next;
        bool isWritten;
    } faults[] = {
        {{"--fault", "refuse-busy"}, "retry", false},
        {{"--fault", "refuse-fax"}, "retry", false},
        {{"--model", "MODEL-B"}, "choose-other-package", false},
        {{"--fault", "close@enter"}, "retry", false},
        {{"--fault", "status-0803@enter"}, "retry", false},
        {{"--fault", "short-reply@get-file"}, "retry", false},
        {{"--fault", "reset@piece:5000"}, "check-printer", true},
        {{"--fault", "status-0803"}, "check-printer", true},
        {{"--fault", "status-0804"}, "check-printer", true},
        {{"--fault", "status-unknown"}, "check-printer", true},
    };
    const auto faultyEach = fleetSize() / 100 + (fleetSize() < 100 ? 1 : 0);
    const PrinterGroup old(fleetSize() * 8 / 10, {});
    const PrinterGroup current(fleetSize() - fleetSize() * 8 / 10 - 10 * faultyEach,
                               {"--firmware", "MAIN=AB010200"});
    std::vector<std::unique_ptr<PrinterGroup>> faulty;
    Names all = old.names;
    all.insert(all.end(), current.names.begin(), current.names.end());
    Names failing;
    for (const auto& fault : faults) {
        faulty.push_back(std::make_unique<PrinterGroup>(faultyEach, fault.options));
        const auto& names = faulty.back()->names;
        failing.insert(failing.end(), names.begin(), names.end());
    }
    all.insert(all.end(), failing.begin(), failing.end());
    all.push_back("net:" + all.front()); // a second name
    const auto package = smallPackage();
    const TempFolder folder;
    const std::vector<std::string> more{"--jobs", jobs(), "--results", folder / "results"};

    FleetCall first(package, all, more);
    EXPECT_EQ(first.run().exitCode(kWhole), 1);
    EXPECT_EQ(first.of("updated"), sorted(old.names));
    EXPECT_EQ(first.of("nothing_to_update"), sorted(current.names));
    EXPECT_EQ(first.of("failed"), sorted(failing));
    EXPECT_EQ(first.of("same_device"), Names{all.back()});
    for (const auto* empty : {"stopped", "not_started", "left_alone", "skipped"})
        EXPECT_EQ(first.of(empty), Names{}) << empty;
    EXPECT_EQ(linesOf(folder / "results"), all.size() - 1);
    const auto next = nextOf(folder / "results");
    for (std::size_t i = 0; i < faulty.size(); ++i) {
        for (const auto& name : faulty[i]->names) {
            EXPECT_EQ(next.at(name), faults[i].next) << faults[i].options[1];
            EXPECT_EQ(faulty[i]->transfers(name), faults[i].isWritten ? 1U : 0U)
                << faults[i].options[1];
        }
    }

    FleetCall second(package, all, more);
    EXPECT_EQ(second.run().exitCode(kWhole), 1);
    EXPECT_EQ(second.of("updated"), Names{});
    EXPECT_EQ(second.of("skipped").size(), old.names.size() + current.names.size());
    EXPECT_EQ(second.of("left_alone").size(), 5 * faultyEach);
    EXPECT_EQ(second.of("failed").size(), 5 * faultyEach);
    for (const auto& name : old.names)
        EXPECT_EQ(old.transfers(name), 1U) << name;
    for (const auto& name : current.names)
        EXPECT_EQ(current.transfers(name), 0U) << name;
}

TEST(Fleet, EveryLineOfAPrinterNamesItAndTheLastNamesNone)
{
    const PrinterGroup printers(2, {});
    const auto package = smallPackage();
    FleetCall call(package, printers.names, {});
    EXPECT_EQ(call.run().exitCode(), 0);
    const auto all = call.run().lines();
    std::size_t results = 0;
    for (const auto& line : all) {
        const bool ofPrinter = line["type"] != "summary" && &line != &all.back();
        results += ofPrinter && line["type"] == "result" ? 1 : 0;
        if (ofPrinter) {
            EXPECT_EQ(std::count(printers.names.begin(), printers.names.end(), line["printer"]), 1)
                << line;
        }
    }
    EXPECT_EQ(results, 2U);
    EXPECT_TRUE(all.back()["printer"].is_null());
    EXPECT_EQ(all.back()["name"], "updated");
    EXPECT_EQ(all.back()["firmware_bytes_sent"], true);
}

TEST(Fleet, ACheckCountsWhatCouldBeUpdated)
{
    const PrinterGroup old(2, {});
    const PrinterGroup current(1, {"--firmware", "MAIN=AB010200"});
    auto all = old.names;
    all.push_back(current.names.front());
    const auto package = smallPackage();
    FleetCall call(package, all, {}, "check");
    EXPECT_EQ(call.run().exitCode(), 0);
    EXPECT_EQ(call.of("update_available"), sorted(old.names));
    EXPECT_EQ(call.of("nothing_to_update"), current.names);
    EXPECT_EQ(old.transfers(old.names.front()), 0U);
}

TEST(Fleet, TheRestIsLeftWhereOneOfTheFirstPrintersFails)
{
    const PrinterGroup bad(1, {"--fault", "refuse-busy"});
    const PrinterGroup good(3, {});
    Names all{good.names[0], bad.names[0], good.names[1], good.names[2]};
    const auto package = smallPackage();
    FleetCall call(package, all, {"--canary", "2"});
    EXPECT_EQ(call.run().exitCode(), 1);
    EXPECT_EQ(call.of("updated"), Names{good.names[0]});
    EXPECT_EQ(call.of("failed"), bad.names);
    EXPECT_EQ(call.of("not_started"), (Names{good.names[1], good.names[2]}));
    EXPECT_EQ(good.transfers(good.names[2]), 0U);
}

TEST(Fleet, NothingStartsAfterTooManyFailures)
{
    const PrinterGroup bad(2, {"--fault", "refuse-busy"});
    const PrinterGroup good(2, {});
    Names all = bad.names;
    all.insert(all.end(), good.names.begin(), good.names.end());
    const auto package = smallPackage();
    FleetCall call(package, all, {"--jobs", "1", "--max-failures", "2"});
    EXPECT_EQ(call.run().exitCode(), 1);
    EXPECT_EQ(call.of("failed"), bad.names);
    EXPECT_EQ(call.of("not_started"), good.names);
}

// The processes that this one has started.
std::vector<pid_t> childrenOf(pid_t parent)
{
    const auto path =
        "/proc/" + std::to_string(parent) + "/task/" + std::to_string(parent) + "/children";
    std::istringstream text(readFile(path));
    return {std::istream_iterator<pid_t>(text), {}};
}

// Two printers, one at a time; the process of the first gets a signal while its printer writes,
// which takes that printer until then.
class EndedMember {
public:
    explicit EndedMember(int signal, const std::function<void(const std::string&)>& before = {})
        : m_call(package, {first.names[0], second.names[0]},
                 {"--jobs", "1", "--results", results()})
    {
        EXPECT_TRUE(m_call.run().process().waitForOutput("\"writing\"", kSoon));
        if (before)
            before(package.path());
        const auto children = childrenOf(m_call.run().process().pid());
        EXPECT_EQ(children.size(), 1U);
        if (children.size() == 1)
            kill(children.front(), signal);
    }
    [[nodiscard]] std::string results() const { return m_folder / "results"; }
    FleetCall& call() { return m_call; }

    const PackageFolder package = smallPackage();
    const PrinterGroup first{1, {"--fault", "busy-forever"}};
    const PrinterGroup second{1, {}};

private:
    TempFolder m_folder;
    FleetCall m_call;
};

TEST(Fleet, AKilledCallFinishesItsRunningPrintersAndIsTakenUpAgain)
{
    const PrinterGroup printers(4, {"--write-rate", "5000"});
    const auto package = smallPackage();
    const TempFolder folder;
    const std::vector<std::string> more{"--jobs", "2", "--results", folder / "results"};
    FleetCall killed(package, printers.names, more);
    ASSERT_TRUE(killed.run().process().waitForOutput("\"writing\"", kSoon));
    killed.run().process().signal(SIGKILL);
    EXPECT_EQ(killed.run().process().wait(), 128 + SIGKILL);
    waitUntil([&] { return !isAtWork(printers.names); });
    const auto recorded = printersIn(folder / "results"); // two, or more if this test was slow
    EXPECT_GE(recorded.size(), 2U);
    FleetCall again(package, printers.names, more);
    EXPECT_EQ(again.run().exitCode(), 0);
    EXPECT_EQ(again.of("skipped"), recorded);
    auto all = recorded;
    const auto updated = again.of("updated");
    all.insert(all.end(), updated.begin(), updated.end());
    EXPECT_EQ(sorted(all), sorted(printers.names)) << "each once";
    for (const auto& name : printers.names)
        EXPECT_EQ(printers.transfers(name), 1U) << name;
}

TEST(Fleet, APrinterWhoseProcessCrashesNeedsAPersonAndTheOthersGoOn)
{
    EndedMember crashed(SIGKILL);
    const auto& bad = crashed.first.names;
    const auto& good = crashed.second.names;
    EXPECT_EQ(crashed.call().run().exitCode(), 1);
    EXPECT_EQ(crashed.call().of("failed"), bad);
    EXPECT_EQ(crashed.call().of("updated"), good);
    EXPECT_EQ(nextOf(crashed.results()).at(bad[0]), "check-printer");
    for (const auto& line : crashed.call().run().lines()) {
        if (line.value("name", "") == "process-ended") {
            EXPECT_TRUE(line["firmware_bytes_sent"].is_null()) << line;
        }
    }
    FleetCall again(crashed.package, {bad[0], good[0]}, {"--results", crashed.results()});
    EXPECT_EQ(again.run().exitCode(), 1);
    EXPECT_EQ(again.of("left_alone"), bad);
    EXPECT_EQ(crashed.first.transfers(bad[0]), 1U);
}

TEST(Fleet, APackageThatIsWrittenOverReachesNoPrinter)
{
    const PackageFolder other({{"MAIN", "AB010300", 7000}});
    const auto replace = [&other](const std::string& folder) {
        std::filesystem::copy_file(other.path() + "/VYMBINDDATA", folder + "/VYMBINDDATA",
                                   std::filesystem::copy_options::overwrite_existing);
    };
    EndedMember stopped(SIGINT, replace);
    EXPECT_EQ(stopped.call().run().exitCode(), 130);
    EXPECT_EQ(stopped.call().of("stopped"), stopped.first.names);
    EXPECT_EQ(stopped.call().of("failed"), stopped.second.names);
    EXPECT_EQ(stopped.second.transfers(stopped.second.names[0]), 0U);
    const auto all = stopped.call().run().lines();
    const auto refused = std::find_if(all.begin(), all.end(), [](const Json& line) {
        return line.value("name", "") == "package-not-trusted";
    });
    ASSERT_NE(refused, all.end());
    EXPECT_EQ((*refused)["printer"], stopped.second.names[0]);
}

TEST(Fleet, CtrlCStartsNothingNewAndEndsEachRunAsForOne)
{
    const PrinterGroup printers(3, {"--fault", "busy-forever"});
    const auto package = smallPackage();
    FleetCall call(package, printers.names, {"--jobs", "2"});
    ASSERT_TRUE(call.run().process().waitForOutput(
        "\"printer\":\"" + printers.names[0] + "\",\"schema_version\":1,\"seconds\"", kSoon));
    const auto isWriting = [&] {
        std::set<std::string> writing;
        std::istringstream text(call.run().process().out());
        for (std::string line; std::getline(text, line);) {
            const auto json = Json::parse(line, nullptr, false);
            if (json.is_object() && json.value("state_name", "") == "writing")
                writing.insert(json.value("printer", ""));
        }
        return writing.size() == 2;
    };
    waitUntil(isWriting);
    call.run().process().signal(SIGINT);
    EXPECT_EQ(call.run().exitCode(), 130);
    EXPECT_EQ(call.of("stopped"), (Names{printers.names[0], printers.names[1]}));
    EXPECT_EQ(call.of("not_started"), Names{printers.names[2]});
    EXPECT_EQ(call.run().result()["next"], "check-printer");
    EXPECT_EQ(printers.transfers(printers.names[2]), 0U);
}

TEST(Fleet, ATimeLimitForEachPrinterStopsOnlyThatOne)
{
    const PrinterGroup endless(1, {"--fault", "busy-forever"});
    const PrinterGroup good(1, {});
    const auto package = smallPackage();
    FleetCall call(package, {endless.names[0], good.names[0]},
                   {"--jobs", "1", "--deadline-each", "3"}); // far more than the other one needs
    EXPECT_EQ(call.run().exitCode(), 130);
    EXPECT_EQ(call.of("stopped"), endless.names);
    EXPECT_EQ(call.of("updated"), good.names);
}

} // namespace
