// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/KernelQueue.h"
#include "Tools/vymprinter/PrinterWire.h"
#include "Tools/vymprinter/TcpListen.h"

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>

using namespace vymprinter;

namespace {

TEST(VymprinterKernelQueue, ReportsEachEndWithItsTagAndResult)
{
    KernelQueue queue(2);
    ASSERT_TRUE(queue.valid());
    const FileHandle file(::open("/tmp", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    ASSERT_TRUE(file.valid());
    const Bytes written{1, 2, 3};
    ASSERT_TRUE(queue.write(file.get(), written, 1));
    pollfd event{queue.event(), POLLIN, 0};
    ASSERT_EQ(::poll(&event, 1, 60000), 1);
    auto ended = queue.ended();
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0].tag, 1U);
    EXPECT_EQ(ended[0].result, 3);
    EXPECT_EQ(::poll(&event, 1, 0), 0);

    Bytes read(8);
    ASSERT_TRUE(queue.read(file.get(), read, 0));
    ASSERT_EQ(::poll(&event, 1, 60000), 1);
    ended = queue.ended();
    ASSERT_EQ(ended.size(), 1U);
    EXPECT_EQ(ended[0].tag, 0U);
    EXPECT_EQ(ended[0].result, 3);
    EXPECT_TRUE(std::equal(written.begin(), written.end(), read.begin()));
}

TEST(VymprinterKernelQueue, RefusesAnInvalidFile)
{
    KernelQueue queue(1);
    Bytes buffer(8);
    EXPECT_FALSE(queue.read(-1, buffer, 0));
    queue.cancel(0);
    EXPECT_TRUE(queue.ended().empty());
}

} // namespace
