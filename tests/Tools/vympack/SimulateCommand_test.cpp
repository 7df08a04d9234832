// SPDX-License-Identifier: MIT
#include "Tools/vympack/SimulateCommand.h"
#include "tests/Tools/vympack/program.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace vympack_test;
using nlohmann::json;
using testing::HasSubstr;

namespace {

const std::string kSimulate = std::string("simulate ") + VYMPACK_DEMO;

} // namespace

TEST(VympackSimulate, EndsAsACheckOfSuchAPrinterWould)
{
    const TempFolder folder;
    const auto broken = folder.write("broken", "no package");
    const struct {
        const char* why;
        std::string arguments;
        int code;
    } rows[] = {
        {"something to send", kSimulate + " --installed MAIN=VP010100", 0},
        {"everything newer", kSimulate + " --installed MAIN=VP010211", 2},
        {"nothing listed", kSimulate, 2},
        {"another series", kSimulate + " --installed MAIN=XX010100", 2},
        {"too old", kSimulate + " --installed MAIN=VP010000", 22},
        {"unreadable", kSimulate + " --installed MAIN=VP01010X", 15},
        {"another model", kSimulate + " --model 'Model 9' --installed MAIN=VP010100", 17},
        {"the model in another case",
         kSimulate + " --model 'VYMPRINT 200' --installed MAIN=VP010100", 0},
        {"no package", "simulate " + broken, 66},
        {"no such file", "simulate " + folder / "none", 66},
        {"words that are no firmware", kSimulate + " --installed MAIN", 64},
        {"a model that breaks the text", kSimulate + " --model 'A\"B'", 64},
        {"no package named", "simulate", 64},
        {"an output that is full", kSimulate + " >/dev/full", 73},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto outcome = run(row.arguments);
        EXPECT_EQ(outcome.code, row.code) << outcome.output;
    }
}

TEST(VympackSimulate, JsonHasTheFirmwareObjectsOfACheck)
{
    const auto outcome =
        run(kSimulate + " --json --installed MAIN=VP010100 --installed ENGINE=VE010200");
    const auto report = json::parse(outcome.output);
    EXPECT_EQ(report["schema_version"], 1);
    EXPECT_EQ(report["command"], "simulate");
    EXPECT_EQ(report["exit_code"], 0);
    EXPECT_EQ(report["name"], "update-available");
    ASSERT_EQ(report["firmware"].size(), 2U);
    EXPECT_EQ(report["firmware"][0]["decision"], "send");
    EXPECT_EQ(report["firmware"][0]["installed_version"], "VP010100");
    EXPECT_EQ(report["firmware"][1]["decision"], "skip");
    EXPECT_EQ(report["firmware"][1]["reason"], "not-newer");
    EXPECT_FALSE(report.contains("table"));
}

TEST(VympackSimulate, TheTableShowsEveryFormAndRuleOfThePackage)
{
    const auto outcome = run(kSimulate + " --table --json");
    const auto table = json::parse(outcome.output)["table"];
    const auto decision = [&](const std::string& name, const std::string& sample) {
        for (const auto& row : table) {
            if (row["name"] == name && row["sample"] == sample)
                return row["decision"].get<std::string>() + " " + row["reason"].get<std::string>();
        }
        return std::string("no row");
    };
    EXPECT_EQ(decision("Main controller", "older"), "send applies");
    EXPECT_EQ(decision("Main controller", "the same"), "send applies");
    EXPECT_EQ(decision("Main controller", "newer"), "skip not-newer");
    EXPECT_EQ(decision("Main controller", "below COMPATIBLE"), "refuse too-old");
    EXPECT_EQ(decision("Print engine", "another series"), "skip other-series");
    EXPECT_EQ(decision("Print engine", "unreadable"), "refuse unreadable-version");
    EXPECT_THAT(run(kSimulate + " --table").output,
                HasSubstr("Print engine VE010105 (four characters and digits)\n"));
}

TEST(VympackSimulate, APackageMayHaveAnyNameAndLiesAnywhere)
{
    const TempFolder folder;
    const auto file = folder.write("new package.bin", container(goodFiles()));
    const auto outcome = run("simulate '" + file + "' --installed MAIN=AB010100");
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    const auto named = folder.write("VYMBINDDATA", container(goodFiles()));
    EXPECT_EQ(shell("cd " + folder.path().string() + " && " + VYMPACK_PROGRAM
                    + " simulate VYMBINDDATA --installed MAIN=AB010100")
                  .code,
              0);
    EXPECT_EQ(run("simulate " + folder.path().string() + " --installed MAIN=AB010100").code, 0);
}

TEST(VympackSimulate, TheFileThatIsNoPackageIsNamedAsItWasGiven)
{
    const TempFolder folder;
    const auto broken = folder.write("broken", "no package");
    EXPECT_THAT(run("simulate " + broken).output, HasSubstr("'" + broken + "'"));
}
