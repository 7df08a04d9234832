// SPDX-License-Identifier: MIT
#include "Tools/vympack/DeskPrinter.h"

#include <gtest/gtest.h>

using namespace vympack;

TEST(VympackDeskPrinter, ListensOnAPortOfItsOwn)
{
    DeskPrinter one({});
    DeskPrinter other({});
    EXPECT_EQ(one.error(), "");
    EXPECT_NE(one.port(), 0);
    EXPECT_NE(one.port(), other.port());
}

TEST(VympackDeskPrinter, StopsAtOnceAndOnlyOnce)
{
    DeskPrinter desk({});
    desk.stop();
    desk.stop();
    EXPECT_TRUE(desk.received().empty());
    EXPECT_TRUE(desk.steps().empty());
}
