// SPDX-License-Identifier: MIT
// Updates with --verify of a printer that restarts: every verdict, as text and in JSON.
#include "tests/system/Desk.h"

#include <gmock/gmock.h>

namespace {

using namespace desk;
using testing::HasSubstr;

struct Verdict {
    const char* name;
    const char* verdict;
    int exitCode;
    const char* installedAfter; // null: unknown
    const char* seconds; // of --verify, on the program's clock
    std::vector<std::string> fault;
    const char* title;
};

class RestartingPrinter : public ::testing::TestWithParam<Verdict> {
protected:
    static VirtualPrinter switchedOn()
    {
        std::vector<std::string> options{"--firmware", "MAIN=AB010100", "--restart",
                                         "0.3",        "--updated",     "MAIN=AB010200"};
        const auto& fault = GetParam().fault;
        options.insert(options.end(), fault.begin(), fault.end());
        return VirtualPrinter(options);
    }
    static std::vector<std::string> verified(const VirtualPrinter& printer,
                                             const PackageFolder& package)
    {
        return {"update",       "--address", printer.address(), "--package",
                package.path(), "--yes",     "--verify",        GetParam().seconds};
    }
    const PackageFolder package{{{"MAIN", "AB010200", 20000}}};
};

TEST_P(RestartingPrinter, GetsItsVerdictInJson)
{
    const auto& wanted = GetParam();
    const auto printer = switchedOn();
    auto words = verified(printer, package);
    words.emplace_back("--json");
    CliRun run(words);
    const auto result = run.result();
    EXPECT_EQ(run.exitCode(), wanted.exitCode);
    EXPECT_EQ(result["exit_code"], wanted.exitCode);
    EXPECT_EQ(result["verdict"], wanted.verdict);
    EXPECT_EQ(result["name"], wanted.exitCode == 0 ? "updated" : wanted.verdict);
    EXPECT_EQ(result["next"], wanted.exitCode == 0 ? "none" : "check-printer");
    EXPECT_EQ(result["firmware_bytes_sent"], true);
    EXPECT_EQ(result["firmware"][0]["installed_after"],
              wanted.installedAfter == nullptr ? Json() : Json(wanted.installedAfter));
    expectStored(printer, package);
}

TEST_P(RestartingPrinter, GetsItsVerdictAsText)
{
    const auto& wanted = GetParam();
    const auto printer = switchedOn();
    CliRun run(verified(printer, package));
    EXPECT_EQ(run.exitCode(), wanted.exitCode);
    EXPECT_THAT(run.process().out() + run.process().errors(), HasSubstr(wanted.title));
    EXPECT_THAT(run.process().errors(), HasSubstr("Waiting for the printer to come back"));
}

const Verdict kVerdicts[] = {
    {"ThatComesBackUpdated",
     "verified",
     0,
     "AB010200",
     "60",
     {},
     "has the versions that were sent"},
    {"ThatComesBackAsItWas",
     "not-installed",
     4,
     "AB010100",
     "2",
     {"--fault", "old-version"},
     "has come back with another version"},
    {"ThatNeverComesBack",
     "not-confirmed",
     3,
     nullptr,
     "1",
     {"--fault", "gone"},
     "did not come back in time"},
};

INSTANTIATE_TEST_SUITE_P(APrinter, RestartingPrinter, ::testing::ValuesIn(kVerdicts),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
