// SPDX-License-Identifier: MIT
#include "UI/Pages/DevicePageRule.h"

#include <gtest/gtest.h>

TEST(DevicePageRule, LeadsANewListToAMode)
{
    constexpr auto kPrinter = DeviceMode::printer;
    constexpr auto kAddress = DeviceMode::address;
    const struct {
        const char* why;
        bool hasPrinters, printerChosen, addressChosen;
        DevicePageRule rule;
    } rows[] = {
        {"first time, printers", true, false, false, {true, false, kPrinter}},
        {"both chosen, which no user can do", true, true, true, {true, false, kPrinter}},
        {"printer mode stays", true, true, false, {true, false, kPrinter}},
        {"address mode stays", true, false, true, {true, false, kAddress}},
        {"first time, no printers", false, false, false, {false, true, kAddress}},
        {"no printers any more", false, true, false, {false, true, kAddress}},
        {"no printers, address mode", false, false, true, {false, true, kAddress}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(devicePageRule(row.hasPrinters, row.printerChosen, row.addressChosen), row.rule)
            << row.why;
}

TEST(DevicePageRule, TakesAnyFourNumbersButZeros)
{
    const struct {
        const char* why;
        std::vector<std::string> values;
        bool isGood;
    } rows[] = {
        {"usual", {"192", "0", "2", "1"}, true},
        {"one number is enough", {"0", "0", "0", "1"}, true},
        {"the first one", {"1", "", "", ""}, true},
        {"zeros", {"0", "0", "0", "0"}, false},
        {"empty", {"", "", "", ""}, false},
        {"zeros and empty", {"0", "", "0", ""}, false},
        {"three", {"1", "2", "3"}, false},
        {"five", {"1", "2", "3", "4", "5"}, false},
        {"none", {}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(inputCheckForIPAddress(row.values), row.isGood) << row.why;
}

TEST(DevicePageRule, JoinsTheNumbersWithDots)
{
    EXPECT_EQ(joinedAddress({"192", "0", "2", "10"}), "192.0.2.10");
    EXPECT_EQ(joinedAddress({}), "");
}
