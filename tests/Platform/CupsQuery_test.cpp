// SPDX-License-Identifier: MIT
// With real print servers: CupsPrintServer_test.cpp, CupsPeers_test.cpp.
#include "Platform/CupsQuery.h"

#include <array>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

TEST(CupsQuery, WritesAReasonWhereNoServerAnswers)
{
    setenv("CUPS_SERVER", "/nonexistent", 1);
    setenv("HOME", "/nonexistent", 1);
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    queryCups(ends[1], std::chrono::seconds(1));
    close(ends[1]);
    std::string written(1000, '\0');
    written.resize(static_cast<std::size_t>(read(ends[0], written.data(), written.size())));
    close(ends[0]);
    ASSERT_FALSE(written.empty());
    EXPECT_EQ(written.front(), kRefused);
    EXPECT_THAT(written, testing::HasSubstr("does not answer at \"/nonexistent\""));
}
