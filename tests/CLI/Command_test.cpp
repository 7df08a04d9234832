// SPDX-License-Identifier: MIT
#include "CLI/Command.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

TEST(Command, IsFoundByItsOwnWord)
{
    std::set<std::string> words;
    for (const auto command : kCommands) {
        EXPECT_EQ(commandNamed(commandName(command)), command);
        words.insert(commandName(command));
    }
    EXPECT_EQ(words.size(), kCommands.size());
}

TEST(Command, IsNoneForAnyOtherWord)
{
    for (const auto* word : {"", "none", "help", "version", "Update", "updat", "updates"})
        EXPECT_EQ(commandNamed(word), Command::none) << word;
}
