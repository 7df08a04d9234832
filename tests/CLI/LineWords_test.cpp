// SPDX-License-Identifier: MIT
#include "CLI/LineWords.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

LineWords wordsOf(std::vector<const char*> words)
{
    words.insert(words.begin(), "vymkit-cli");
    return lineWords(static_cast<int>(words.size()), words.data());
}

} // namespace

TEST(LineWords, NameTheCommandAlsoOfAWrongLine)
{
    EXPECT_EQ(wordsOf({"check", "--force"}).command, Command::check);
    EXPECT_EQ(wordsOf({"--force", "update"}).command, Command::update);
    EXPECT_EQ(wordsOf({"--printer", "info", "check"}).command, Command::check);
    EXPECT_EQ(wordsOf({"-pinfo", "check"}).command, Command::check);
    EXPECT_EQ(wordsOf({"--printer=info", "check"}).command, Command::check);
    EXPECT_EQ(wordsOf({"flash"}).command, Command::none);
}

TEST(LineWords, FindTheFirstWordThatIsUnknown)
{
    const struct {
        std::vector<const char*> words;
        const char* unknown;
    } rows[] = {
        {{"check", "--force", "--what"}, "--force"},
        {{"flash"}, "flash"},
        {{"info", "check"}, "check"},
        {{"check", "--address", "--force"}, ""}, // a value
        {{"check", "--adress=1"}, "--adress=1"},
        {{"history", "3"}, ""},
        {{"update", "--key", "k", "--sha256", "h", "--verify", "9", "--trace", "t"}, ""},
        {{"check", "-x"}, "-x"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(wordsOf(row.words).unknown, row.unknown);
}

TEST(LineWords, FindAnOptionWithoutItsValue)
{
    EXPECT_EQ(wordsOf({"info", "--package=", "check"}).emptyOption, "--package");
    EXPECT_EQ(wordsOf({"info", "--package=x"}).emptyOption, "");
    EXPECT_EQ(wordsOf({"info", "--json="}).emptyOption, "");
}

TEST(LineWords, HearAQuestionForHelpAnywhere)
{
    EXPECT_TRUE(wordsOf({"--force", "-h"}).wantsHelp);
    EXPECT_TRUE(wordsOf({"check", "--address", "--help"}).wantsHelp);
    EXPECT_FALSE(wordsOf({"check", "--address", "h"}).wantsHelp);
}

TEST(SuggestionFor, NamesTheNearestKnownWord)
{
    EXPECT_EQ(suggestionFor("--adress"), "Did you mean '--address'?");
    EXPECT_EQ(suggestionFor("--adress=192.0.2.7"), "Did you mean '--address'?");
    EXPECT_EQ(suggestionFor("chekc"), "Did you mean 'check'?");
    EXPECT_EQ(suggestionFor("printer"), "Did you mean 'printers'?");
    EXPECT_EQ(suggestionFor("--colour"), "");
    EXPECT_EQ(suggestionFor("flash"), "");
    EXPECT_EQ(suggestionFor("x"), "");
}
