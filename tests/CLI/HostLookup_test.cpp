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
    // A part of a name has at most 63 characters: so no name server is queried, or waited for.
    const auto noName = std::string(64, 'a') + ".example";
    EXPECT_EQ(run.runOnPackage({"check", "--address", noName, "--json"}), 68);
    EXPECT_THAT(run.out, HasSubstr(R"("name":"no-such-printer")"));
    EXPECT_THAT(run.out, HasSubstr("No host is called '" + noName + "': "));
    EXPECT_EQ(run.worker.portNumber, 0);
}
