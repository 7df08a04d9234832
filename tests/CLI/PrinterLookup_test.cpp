// SPDX-License-Identifier: MIT
// The wait for the search for printers, and its end.
#include "tests/CLI/PrintersRun.h"

#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

// Sends this process a signal, and waits until the program has taken it.
void interrupt(int signal)
{
    kill(getpid(), signal);
    sigset_t pending{};
    for (sigpending(&pending); sigismember(&pending, signal) == 1; sigpending(&pending))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

} // namespace

TEST(PrinterLookup, ShowsWhomItWaitsFor)
{
    Printers run;
    run.server.whileAsked = [&] { run.awaitErrors("Asking the print server\n"); };
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, StartsWith("Asking the print server\n"));
    run.bus.beforeWalk(0, [&] { run.awaitErrors("Looking for printers on USB\n"); });
    run.server.whileAsked = [] {};
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, HasSubstr("Looking for printers on USB\n"));
    run.server.queue("Cable", usbPort("12"));
    run.bus.beforeWalk(0, [&] { run.awaitErrors("Asking Cable"); });
    EXPECT_EQ(run.list(), 0);
    EXPECT_THAT(run.err, HasSubstr("Asking Cable (usb://Acme/Model%20100?serial=12)\n"));
}

TEST(PrinterLookup, ASignalStopsIt)
{
    Printers run;
    run.server.whileAsked = [] { interrupt(SIGINT); };
    EXPECT_EQ(run.list({"--json"}), 130);
    EXPECT_THAT(run.out, HasSubstr(R"("command":"printers","exit_code":130,"name":"stopped")"));
    EXPECT_THAT(run.out, HasSubstr("before it was known which printers there are"));
}

TEST(PrinterLookup, IsLeftAloneWhenTheLookingIsStopped)
{
    Printers run;
    run.server.whileAsked = [] { interrupt(SIGTERM); };
    EXPECT_EQ(run.runOnPackage({"update", "--printer", "Office", "--yes"}), 130);
    EXPECT_THAT(run.err, HasSubstr("Stopped: You stopped the run before it was known"));
    EXPECT_EQ(run.worker.portNumber, 0);
}
