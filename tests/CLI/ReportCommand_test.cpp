// SPDX-License-Identifier: MIT
#include "tests/CLI/CommandRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(ReportCommand, WritesTheReportAndNothingElseToTheStandardOutput)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"report"}), 0);
    EXPECT_THAT(run.out, StartsWith("Report of Vymkit\n"));
    EXPECT_THAT(run.out, HasSubstr("program: vymkit-cli "));
    EXPECT_THAT(run.out, Not(HasSubstr(run.folder.path().filename().string())));
}

TEST(ReportCommand, WritesItToAFileAndSaysWhere)
{
    CommandRun run;
    const auto file = run.folder / "report.txt";
    EXPECT_EQ(run.runOnPackage({"report", "-o", file}), 0);
    EXPECT_THAT(run.out, StartsWith("Saved: The report is in"));
    EXPECT_THAT(readFile(file), StartsWith("Report of Vymkit\n"));
}

TEST(ReportCommand, IsALineOfTextInJson)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"report", "--json"}), 0);
    EXPECT_THAT(run.out,
                StartsWith(R"({"type":"report","schema_version":1,"text":"Report of Vymkit\n)"));
    EXPECT_THAT(run.out, HasSubstr(R"("command":"report","exit_code":0,"name":"report-shown")"));
    EXPECT_EQ(run.runOnPackage({"report", "--json", "-o", run.folder / "r"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"("name":"report-saved")"));
    EXPECT_THAT(run.out, Not(HasSubstr(R"("type":"report")")));
}

TEST(ReportCommand, SaysWhyItCannotBeWritten)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"report", "-o", "/nowhere/report"}), 64);
    EXPECT_THAT(run.err, HasSubstr("The report cannot be written to '/nowhere/report': No such"));
    EXPECT_EQ(run.runOnPackage({"report", "--output="}), 64);
    EXPECT_EQ(run.runOnPackage({"info", "-o", "x"}), 64);
    EXPECT_THAT(run.err, HasSubstr("--output belongs to 'report' only."));
}

TEST(ReportCommand, IsAlsoMadeWithoutAUsablePackage)
{
    CommandRun run;
    EXPECT_EQ(run.run({"report", "--package", "/nowhere"}), 0);
    EXPECT_THAT(run.out, HasSubstr("problem, package: There is no folder"));
}
