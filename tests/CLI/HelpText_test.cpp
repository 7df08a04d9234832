// SPDX-License-Identifier: MIT
#include "CLI/HelpText.h"
#include "CLI/Options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

using testing::HasSubstr;
using testing::StartsWith;

TEST(HelpText, FitsATerminalOfTheUsualWidth)
{
    std::istringstream lines{std::string(kHelpText)};
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(line.size(), 100U) << line;
}

TEST(HelpText, ListsEveryCommandOnceAmongTheCommands)
{
    const std::string text(commandsText());
    EXPECT_THAT(text, StartsWith("Commands:\n"));
    for (const auto command : kCommands)
        EXPECT_THAT(text, HasSubstr("\n  " + std::string(commandName(command)) + " "));
    EXPECT_EQ(text.find("Options"), std::string::npos);
    EXPECT_NE(text.back(), '\n');
}
