// SPDX-License-Identifier: MIT
#include "Platform/SystemPrintServer.h"

#include <gtest/gtest.h>

TEST(NoPrintServer, HasNoQueuesAndSaysWhy)
{
    const auto server = makeSystemPrintServer();
    ASSERT_NE(server, nullptr);
    std::vector<PrintQueue> queues(1);
    std::string reason;
    EXPECT_FALSE(server->queues(queues, reason));
    EXPECT_TRUE(queues.empty());
    EXPECT_EQ(reason, "This program was built without support for the print system.");
}
