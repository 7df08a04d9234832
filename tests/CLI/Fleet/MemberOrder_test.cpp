// SPDX-License-Identifier: MIT
#include "CLI/Fleet/MemberOrder.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

// The order that a process with this variable gets.
std::optional<MemberOrder> passed(const std::string& variable)
{
    const auto equals = variable.find('=');
    setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
    auto order = orderFromEnvironment();
    unsetenv(variable.substr(0, equals).c_str());
    return order;
}

} // namespace

TEST(MemberOrder, ArrivesAsItWasGiven)
{
    const PrintQueue queue{"Büro", "office", std::nullopt, "lpd://192.0.2.7/", "Acme 1"};
    const auto order = passed(asEnvironment({"of\"fice\n", "/tmp/results", queue}));
    ASSERT_TRUE(order && order->queue);
    EXPECT_EQ(order->printer, "of\"fice\n");
    EXPECT_EQ(order->results, "/tmp/results");
    EXPECT_EQ(order->queue->name, "Büro");
    EXPECT_EQ(order->queue->identifier, "office");
    EXPECT_EQ(order->queue->deviceUri, "lpd://192.0.2.7/");
    EXPECT_EQ(order->queue->makeAndModel, "Acme 1");
}

TEST(MemberOrder, LacksWhatWasNotGiven)
{
    const auto order = passed(asEnvironment({"192.0.2.7", std::nullopt, std::nullopt}));
    ASSERT_TRUE(order);
    EXPECT_FALSE(order->results || order->queue);
}

TEST(MemberOrder, IsNoneInAProcessOfAUser)
{
    EXPECT_FALSE(orderFromEnvironment());
    for (const char* bad : {"", "1", "{}", "{\"printer\":3}", "[\"printer\"]"})
        EXPECT_FALSE(passed(std::string("VYMKIT_FLEET_MEMBER=") + bad)) << bad;
}
