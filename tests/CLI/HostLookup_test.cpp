// SPDX-License-Identifier: MIT
// A host name instead of an address; "localhost" is the only name that every system knows.
#include "tests/CLI/CommandRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

TEST(HostLookup, GivesTheRunTheAddressOfTheName)
{
    CommandRun run;
    run.worker.report = {1, "Model 100", {}};
    EXPECT_EQ(run.runOnPackage({"check", "--address", "localhost", "--json"}), 2);
    EXPECT_EQ(run.worker.port, "127.0.0.1");
    EXPECT_EQ(run.worker.queue, std::nullopt);
    EXPECT_THAT(run.out, HasSubstr(R"("address":"127.0.0.1")"));
}

TEST(HostLookup, SaysThatNoHostHasTheName)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"check", "--address", "no-such-host.invalid", "--json"}), 68);
    EXPECT_THAT(run.out, HasSubstr(R"("name":"no-such-printer")"));
    EXPECT_THAT(run.out, HasSubstr("No host is called 'no-such-host.invalid': "));
    EXPECT_EQ(run.worker.portNumber, 0);
}
