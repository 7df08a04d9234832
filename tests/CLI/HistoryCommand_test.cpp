// SPDX-License-Identifier: MIT
#include "tests/CLI/CommandRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

// Two runs: one that ended and, before it, one that did not.
class History : public CommandRun {
public:
    History()
    {
        std::filesystem::create_directories(folder / "state/vymkit");
        folder.write("state/vymkit/run-20261120T100000.000Z-7.log",
                     "program: vymkit 0.1.0\nstarted: 2026-11-20 11:00:00 +0100\n"
                     "package: /media/stick\nprinter: Office\naddress: lpd://10.0.0.5/\n"
                     "11:00:10: sending, firmware 1 MAIN\n");
        folder.write("state/vymkit/run-20261121T100000.000Z-8.log",
                     "program: vymkit-cli 0.1.0\nstarted: 2026-11-21 11:00:00 +0100\n"
                     "package: /media/stick\naddress: 192.0.2.7\nnote: \x1b[2J\n"
                     "result: 1 updated\nended: 2026-11-21 11:01:00 +0100\n");
    }
};

} // namespace

TEST(HistoryCommand, ListsTheRunsNewestFirst)
{
    History run;
    EXPECT_EQ(run.run({"history"}), 0);
    EXPECT_THAT(run.out, StartsWith("Runs: 2 runs have left a log"));
    const auto newest = run.out.find("1    2026-11-21 11:00:00");
    const auto oldest = run.out.find("2    2026-11-20 11:00:00");
    EXPECT_NE(newest, std::string::npos) << run.out;
    EXPECT_LT(newest, oldest);
    EXPECT_THAT(run.out, HasSubstr("192.0.2.7                 /media/stick  1 updated\n"));
    EXPECT_THAT(run.out, HasSubstr("Office (lpd://10.0.0.5/)  /media/stick  not finished\n"));
}

TEST(HistoryCommand, ShowsOneLogAndNothingThatMovesACursor)
{
    History run;
    EXPECT_EQ(run.run({"history", "1"}), 0);
    EXPECT_THAT(run.out, StartsWith("program: vymkit-cli 0.1.0\nstarted: "));
    EXPECT_THAT(run.out, HasSubstr("note: \\x1b[2J\n"));
    EXPECT_EQ(run.run({"history", "2", "--json"}), 0);
    EXPECT_THAT(run.out,
                HasSubstr(R"({"type":"log","schema_version":1,"text":"program: vymkit 0)"));
}

TEST(HistoryCommand, GivesALineOfJsonForEachRun)
{
    History run;
    EXPECT_EQ(run.run({"history", "--json"}), 0);
    EXPECT_THAT(
        run.out,
        HasSubstr(
            R"({"type":"run","schema_version":1,"number":1,"started":"2026-11-21 11:00:00 +0100","program":"vymkit-cli 0.1.0","printer_name":null,"address":"192.0.2.7","package_folder":"/media/stick","result":"1 updated","finished":true,)"));
    EXPECT_THAT(run.out, HasSubstr(R"("number":2)"));
    EXPECT_THAT(run.out, HasSubstr(R"("result":null,"finished":false,)"));
    EXPECT_THAT(run.out, HasSubstr(R"("command":"history","exit_code":0,"name":"history-listed")"));
}

TEST(HistoryCommand, ShowsWhatTheQueryAfterAnUpdateHasFound)
{
    History run;
    run.folder.write("state/vymkit/run-20261122T100000.000Z-9.log",
                     "started: 2026-11-22 11:00:00 +0100\naddress: 192.0.2.8\n"
                     "result: 1 updated\nended: 2026-11-22 11:01:00 +0100\n"
                     "verdict: not-installed, 2026-11-22 11:05:00 +0100\n");
    EXPECT_EQ(run.run({"history"}), 0);
    EXPECT_THAT(run.out, HasSubstr("1 updated, not installed\n"));
    EXPECT_THAT(run.out, HasSubstr("1 updated\n")) << "a run without a query";
    EXPECT_EQ(run.run({"history", "--json"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"(Z-9.log","verdict":"not-installed"})"));
    EXPECT_THAT(run.out, HasSubstr(R"(Z-8.log","verdict":null})"));
}

TEST(HistoryCommand, SaysThatThereIsNone)
{
    CommandRun run;
    EXPECT_EQ(run.run({"history"}), 0);
    EXPECT_EQ(run.out, "Runs: No run has left a log yet.\n");
    EXPECT_EQ(run.run({"history", "1"}), 64);
    EXPECT_THAT(run.err, HasSubstr("There is no run 1."));
    EXPECT_EQ(run.run({"history", "0"}), 64);
    EXPECT_EQ(run.run({"history", "x"}), 64);
}

TEST(HistoryCommand, NeedsNoPackage)
{
    History run;
    run.package.isContainer = false;
    EXPECT_EQ(run.run({"history", "--json"}), 0);
}
