// SPDX-License-Identifier: MIT
#include "Platform/Libcups.h"

#include <algorithm>
#include <array>
#include <bit>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>

TEST(Libcups, IsLoadedOnceWithEveryFunction)
{
    if (void* library = dlopen("libcups.so.2", RTLD_NOW); library == nullptr)
        GTEST_SKIP() << "libcups is not installed";
    const auto* cups = libcups();
    ASSERT_NE(cups, nullptr);
    EXPECT_EQ(libcups(), cups);
    using Pointers = std::array<void*, sizeof(Libcups) / sizeof(void*)>;
    const auto functions = std::bit_cast<Pointers>(*cups);
    EXPECT_EQ(std::count(functions.begin(), functions.end(), nullptr), 0)
        << "a function that is missing would be called as null";
    EXPECT_EQ(cups->ippPort(), 631);
}
