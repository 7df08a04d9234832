// SPDX-License-Identifier: MIT
#include "Tools/vympack/DiffCommand.h"
#include "tests/Tools/vympack/program.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace vympack_test;
using nlohmann::json;
using testing::HasSubstr;

TEST(VympackDiff, EndsWithOneWhereThereIsADifference)
{
    const TempFolder folder;
    const auto one = folder.write("one", container(goodFiles()));
    const auto same = folder.write("same", container(goodFiles()));
    auto files = goodFiles();
    files[1].second = "FIRMWARE";
    const auto other = folder.write("other", container(files));
    const auto broken = folder.write("broken", "no package");
    const auto textless = folder.write("textless", container({{"a", "x"}, {"b", "y"}}));
    const struct {
        const char* why;
        std::string arguments;
        int code;
    } rows[] = {
        {"the same bytes", one + " " + same, 0},
        {"another image", one + " " + other, 1},
        {"no package", one + " " + broken, 66},
        {"no description", textless + " " + one, 66},
        {"no such file", one + " " + folder / "none", 66},
        {"one file only", one, 64},
        {"an output that is full", one + " " + other + " >/dev/full", 73},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto outcome = run("diff " + row.arguments);
        EXPECT_EQ(outcome.code, row.code) << outcome.output;
    }
}

TEST(VympackDiff, SaysWhatDiffersAsTextAndAsJson)
{
    const TempFolder folder;
    const auto one = folder.write("one", container(goodFiles()));
    auto files = goodFiles();
    files[0].second = replaced(files[0].second, "48350", "1234");
    const auto other = folder.write("other", container(files));
    EXPECT_EQ(run("diff " + one + " " + other).output,
              "row PORTNO\n  - 48350\n  + 1234\n1 difference\n");
    const auto report = json::parse(run("diff --json " + one + " " + other).output);
    EXPECT_EQ(report["schema_version"], 1);
    EXPECT_EQ(report["exit_code"], 1);
    EXPECT_EQ(report["differences"][0]["kind"], "row");
    EXPECT_EQ(report["differences"][0]["before"], "48350");
    EXPECT_EQ(report["differences"][0]["after"], "1234");
}

TEST(VympackDiff, HostileTextsAreMadePrintable)
{
    const TempFolder folder;
    const auto one = folder.write("one", container(goodFiles()));
    const auto other = folder.write(
        "other", container({{"VYMINFO.txt", "TGMNAME \x1B[2J\xFF\r\n"}, {"\x1B]0;x", "y"}}));
    const auto outcome = run("diff " + one + " " + other);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.output.find('\x1B'), std::string::npos);
    EXPECT_THAT(outcome.output, HasSubstr("\\x1b[2J\\xff"));
    EXPECT_FALSE(
        json::parse(run("diff --json " + one + " " + other).output, nullptr, false).is_discarded());
}
