// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/ReplyQueue.h"
#include "Tools/vymprinter/ReplyShape.h"

#include <gtest/gtest.h>

using namespace vymprinter;

namespace {

TEST(VymprinterReplyQueue, QueueLetsNothingOvertake)
{
    ReplyQueue queue;
    queue.push({Millis(50), {1, 2}, LinkEnd::none});
    queue.push({Millis(10), {3}, LinkEnd::none});
    queue.sent(1);
    EXPECT_EQ(queue.unsent().size(), 1U);
    queue.sent(1);
    EXPECT_EQ(queue.front().due, Millis(50));
    queue.sent(1);
    EXPECT_TRUE(queue.empty());
}

} // namespace
