// SPDX-License-Identifier: MIT
#include "UI/WizardOptions.h"

#include <array>
#include <gtest/gtest.h>

namespace {

template <std::size_t count> WizardOptions parsed(const std::array<const char*, count>& words)
{
    return parseWizardOptions(static_cast<int>(count), words.data());
}

} // namespace

TEST(WizardOptions, StartsWithThePackageBesideTheProgram)
{
    const auto options = parsed(std::array{"vymkit"});
    EXPECT_FALSE(options.package.has_value());
    EXPECT_EQ(options.usageError, "");
}

TEST(WizardOptions, TakesAPackageByItsOption)
{
    EXPECT_EQ(parsed(std::array{"vymkit", "--package", "/a b"}).package, "/a b");
    EXPECT_EQ(parsed(std::array{"vymkit", "-p", "x"}).package, "x");
}

TEST(WizardOptions, TakesAFileAsADoubleClickGivesIt)
{
    const auto options = parsed(std::array{"vymkit", "/media/stick/office 1.2.vymbind"});
    EXPECT_EQ(options.package, "/media/stick/office 1.2.vymbind");
    EXPECT_EQ(options.usageError, "");
}

TEST(WizardOptions, KnowsHelpAndVersion)
{
    EXPECT_TRUE(parsed(std::array{"vymkit", "--help"}).help);
    EXPECT_TRUE(parsed(std::array{"vymkit", "-h"}).help);
    EXPECT_TRUE(parsed(std::array{"vymkit", "--version"}).version);
    EXPECT_NE(wizardHelpText().find("--package"), std::string::npos);
}

TEST(WizardOptions, NamesWhatItDoesNotKnow)
{
    EXPECT_NE(parsed(std::array{"vymkit", "--bad"}).usageError.find("--bad"), std::string::npos);
    EXPECT_NE(parsed(std::array{"vymkit", "--package"}).usageError, "");
    EXPECT_NE(parsed(std::array{"vymkit", "one", "left over"}).usageError, "");
    EXPECT_NE(parsed(std::array{"vymkit", "one", "--package", "two"}).usageError, "");
}

TEST(WizardOptions, BearsAnEmptyLine)
{
    EXPECT_EQ(parseWizardOptions(0, nullptr).usageError, "");
}
