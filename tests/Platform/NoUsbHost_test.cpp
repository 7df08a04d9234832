// SPDX-License-Identifier: MIT
#include "Platform/SystemUsbHost.h"

#include <gtest/gtest.h>

TEST(NoUsbHost, IsNull)
{
    EXPECT_EQ(systemUsbHost(), nullptr);
}
