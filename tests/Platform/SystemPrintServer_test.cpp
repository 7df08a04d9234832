// SPDX-License-Identifier: MIT
#include "Platform/SystemPrintServer.h"

#include <cstdlib>
#include <gtest/gtest.h>

TEST(SystemPrintServer, IsAlwaysThereAndSaysWhyItHasNoQueues)
{
    setenv("CUPS_SERVER", "/nonexistent/cups.sock", 1);
    setenv("HOME", "/nonexistent", 1);
    const auto server = makeSystemPrintServer();
    ASSERT_NE(server, nullptr);
    std::vector<PrintQueue> queues(1);
    std::string reason;
    EXPECT_FALSE(server->queues(queues, reason));
    EXPECT_TRUE(queues.empty());
    EXPECT_NE(reason.find(VYMKIT_CUPS ? "/nonexistent/cups.sock" : "without support"),
              std::string::npos)
        << reason;
}
