// SPDX-License-Identifier: MIT
#include "UI/Text/TextList.h"

#include <gtest/gtest.h>

TEST(TextList, PutsACommaBetweenTexts)
{
    EXPECT_EQ(joined({}), "");
    EXPECT_EQ(joined({"a"}), "a");
    EXPECT_EQ(joined({"a", "", "c"}), "a, , c");
}
