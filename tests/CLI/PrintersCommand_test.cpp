// SPDX-License-Identifier: MIT
// Whole command lines that list printers.
#include "tests/CLI/PrintersRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

TEST(PrintersCommand, ListsThoseThatCanBeUpdated)
{
    AllPrinters run;
    EXPECT_EQ(run.list(), 0);
    expectGolden("printers.txt", run.out);
    EXPECT_EQ(run.list({"--json"}), 0);
    expectGolden("printers.json", run.out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.worker.workers, 0);
}

TEST(PrintersCommand, GivesTheReasonOfEveryOther)
{
    AllPrinters run;
    EXPECT_EQ(run.list({"--all", "--quiet"}), 0);
    expectGolden("printers-all.txt", run.out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.list({"--all", "--json"}), 0);
    expectGolden("printers-all.json", run.out);
}

TEST(PrintersCommand, WarnsOfWhatWouldGoWrongWithACandidate)
{
    Printers run;
    run.server.queue("Six", "lpd://[2001:db8::1]/q", "Driver 100 PS");
    run.server.queue("Long", "lpd://" + std::string(260, 'a'), "Driver 100 PS");
    run.server.queue("Office two", "lpd://10.0.0.5:515/other", "Driver 100 PS");
    run.server.queue("Socket", "socket://10.0.0.9", "Driver 100 PS");
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.out, HasSubstr("its address is an IPv6 one"));
    EXPECT_THAT(run.out, HasSubstr("its address is too long for a connection"));
    EXPECT_THAT(run.out, HasSubstr("it leads to the same host as Office\n"));
    EXPECT_EQ(run.list({"--all", "--json"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"("warning":"it leads to the same host as Office"})"));
    EXPECT_THAT(run.out, HasSubstr("by LPD: give its IPv4 address with --address"));
}

TEST(PrintersCommand, SaysThatThereIsNone)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"printers"}), 0);
    EXPECT_EQ(run.out, "Printers: none can be updated from this package.\n");
    EXPECT_EQ(run.runOnPackage({"printers", "--json"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"("printers":[],"udev_rule":null,)"));
}

TEST(PrintersCommand, ListsUsbIfThePrintServerCannotBeQueried)
{
    Printers run;
    run.usbPrinter("12");
    run.server.refuse("it\x1b[2J is not running.");
    EXPECT_EQ(run.list({"--quiet"}), 69);
    expectGolden("printers-no-server.txt", run.out + run.err);
    EXPECT_EQ(run.list({"--json"}), 69);
    EXPECT_THAT(run.out, HasSubstr(R"("exit_code":69,"name":"print-server-unreachable")"));
    EXPECT_THAT(run.out, HasSubstr(R"("connection":"usb")"));
}

TEST(PrintersCommand, ShowsNoControlCharactersOfAPrintServer)
{
    Printers run;
    run.server.queue("\x1b[2J\xff", "lpd://\x9b/", "Driver 100\n");
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.out, HasSubstr("\\x1b[2J\\xff"));
    EXPECT_THAT(run.out, HasSubstr("Driver 100\\x0a"));
    EXPECT_THAT(run.out, HasSubstr("lpd://\\x9b/"));
}

TEST(PrintersCommand, NeedsAPackage)
{
    CommandRun run;
    EXPECT_EQ(run.run({"printers", "--package", run.folder / "missing"}), 66);
    EXPECT_EQ(run.server.asked, 0);
}
