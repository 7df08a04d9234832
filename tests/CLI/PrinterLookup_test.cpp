// SPDX-License-Identifier: MIT
// The wait for the search for printers, and its end.
#include "tests/CLI/PrintersRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::HasSubstr;
using testing::StartsWith;

TEST(PrinterLookup, ShowsWhomItWaitsFor)
{
    Printers run;
    run.server.whileAsked = [] { usleep(kUntilSeen); };
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, StartsWith("Asking the print server\n"));
    run.bus.beforeWalk(0, [] { usleep(kUntilSeen); });
    run.server.whileAsked = [] {};
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, HasSubstr("Looking for printers on USB\n"));
    run.server.queue("Cable", usbPort("12"));
    run.bus.beforeWalk(0, [] { usleep(kUntilSeen); });
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, HasSubstr("Asking Cable (usb://Acme/Model%20100?serial=12)\n"));
}

TEST(PrinterLookup, ASignalStopsIt)
{
    Printers run;
    run.server.whileAsked = [] {
        kill(getpid(), SIGINT);
        usleep(kUntilSeen);
    };
    EXPECT_EQ(run.list({"--json"}), 130);
    EXPECT_THAT(run.out, HasSubstr(R"("command":"printers","exit_code":130,"name":"stopped")"));
    EXPECT_THAT(run.out, HasSubstr("before it was known which printers there are"));
}

TEST(PrinterLookup, IsLeftAloneWhenTheLookingIsStopped)
{
    Printers run;
    run.server.whileAsked = [] {
        kill(getpid(), SIGTERM);
        usleep(kUntilSeen);
    };
    EXPECT_EQ(run.runOnPackage({"update", "--printer", "Office", "--yes"}), 130);
    EXPECT_THAT(run.err, HasSubstr("Stopped: You stopped the run before it was known"));
    EXPECT_EQ(run.worker.portNumber, 0);
}
