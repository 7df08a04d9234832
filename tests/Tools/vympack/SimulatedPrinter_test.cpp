// SPDX-License-Identifier: MIT
#include "Tools/vympack/SimulatedPrinter.h"
#include "VYM/vymParse.h"

#include <gtest/gtest.h>

using namespace vympack;

TEST(VympackSimulatedPrinter, SaysOfItselfWhatTheUpdaterReads)
{
    vymParse parsed;
    const auto text = targetInfoOf({"Model 100", {{"MAIN", "AB010100"}}, true});
    ASSERT_TRUE(parsed.loadData(text.data(), text.size(), load_targetinfo));
    std::string model;
    std::string name;
    std::string version;
    std::vector<int> commands;
    EXPECT_TRUE(parsed.getTgmName(model));
    EXPECT_EQ(model, "Model 100");
    EXPECT_TRUE(parsed.getTargetInfoVersion(0, name, version));
    EXPECT_EQ(name + "=" + version, "MAIN=AB010100");
    EXPECT_FALSE(parsed.getTargetInfoVersion(1, name, version));
    EXPECT_TRUE(parsed.getSupportCommand(commands));
    EXPECT_EQ(commands.back(), 0x5103);
}

TEST(VympackSimulatedPrinter, ThatCannotBeQueriedDoesNotListTheQuery)
{
    EXPECT_EQ(targetInfoOf({"M", {}, false}).find("5103"), std::string::npos);
}

TEST(VympackSimulatedPrinter, WordsThatWouldBreakItsTextAreRefused)
{
    const struct {
        const char* why;
        std::string model, installed;
        bool fits;
    } rows[] = {
        {"name and version", "M", "MAIN=01.00", true},
        {"no equals sign", "M", "MAIN", false},
        {"no name", "M", "=01.00", false},
        {"no version", "M", "MAIN=", false},
        {"a blank", "M", "MAIN=01 00", false},
        {"a row of its own", "M", "MAIN=1\r\nMAXPACKET=1", false},
        {"a quote", "M", "MA\"IN=1", false},
        {"a model with a quote", "M\"", "MAIN=1", false},
        {"a model with a line's end", "M\n", "MAIN=1", false},
        {"a model with blanks", "M 1", "MAIN=1", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        std::string wrong;
        EXPECT_EQ(readPrinter(row.model, {row.installed}, wrong).has_value(), row.fits);
        EXPECT_EQ(wrong.empty(), row.fits);
    }
}
