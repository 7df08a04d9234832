// SPDX-License-Identifier: MIT
// Debug texts, and the portability layer's queries to the system.
#include "VYM/vymMac.h"
#include "tests/support/TempFolder.h"

#include <climits>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace {

std::vector<std::string>& heard()
{
    static std::vector<std::string> texts;
    return texts;
}

void hear(const char* text)
{
    heard().emplace_back(text);
}

class DebugTexts : public testing::Test {
protected:
    DebugTexts() { setDebugSink(&hear); }
    ~DebugTexts() override
    {
        setDebugSink(nullptr);
        setDebugLogLv(1);
        heard().clear();
    }
};

// Unsets the user's locale variables, and restores them afterwards.
class Locale : public testing::Test {
protected:
    Locale()
    {
        for (const char* name : kNames) {
            const char* value = std::getenv(name);
            m_before.push_back(value != nullptr ? value : "");
            unsetenv(name);
        }
    }
    ~Locale() override
    {
        for (std::size_t i = 0; i < m_before.size(); ++i)
            setenv(kNames[i], m_before[i].c_str(), 1);
    }
    static std::string chosen()
    {
        char* text = getLocaleString();
        const std::string copy = text;
        std::free(text); // NOLINT: the caller frees it
        return copy;
    }

private:
    static constexpr const char* kNames[] = {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"};
    std::vector<std::string> m_before;
};

} // namespace

TEST_F(DebugTexts, PassUpToTheLevelAndEndInALineFeed)
{
    const struct {
        unsigned global, level;
        bool heard;
    } rows[] = {{1, 1, true},  {1, 2, false}, {1, 0, true},
                {0, 1, false}, {0, 0, true},  {UINT_MAX, 7, true}};
    for (const auto& row : rows) {
        heard().clear();
        setDebugLogLv(row.global);
        outputDebugMsg("text", row.level);
        const auto expected =
            row.heard ? std::vector<std::string>{"text\n"} : std::vector<std::string>{};
        EXPECT_EQ(heard(), expected) << row.global << " " << row.level;
    }
}

TEST_F(DebugTexts, StartAtLevelOne)
{
    outputDebugMsg("one", 1);
    outputDebugMsg("two", 2);
    EXPECT_EQ(heard(), std::vector<std::string>{"one\n"});
}

TEST_F(DebugTexts, OfNullAreDropped)
{
    outputDebugMsg(nullptr, 0);
    EXPECT_TRUE(heard().empty());
}

TEST_F(DebugTexts, AreDroppedWithoutASink)
{
    setDebugSink(nullptr);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    outputDebugMsg("text", 0);
    OutputDebugString("text");
    OutputDebugString(nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(heard().empty());
}

TEST(SystemVersion, IsKnownHereAndFitsFourDigits)
{
    const auto version = getSystemVersion();
    EXPECT_GT(version, 0UL);
    EXPECT_LE(version, 0x9999UL);
}

TEST_F(Locale, IsJapaneseOnlyForThatLanguage)
{
    const struct {
        const char* why;
        const char* variable;
        const char* value;
        const char* locale;
    } rows[] = {
        {"the language alone", "LANG", "ja", "ja_JP.UTF-8"},
        {"with country and encoding", "LANG", "ja_JP.UTF-8", "ja_JP.UTF-8"},
        {"in upper case", "LANG", "JA", "ja_JP.UTF-8"},
        {"the first of a list", "LANGUAGE", "ja:en", "ja_JP.UTF-8"},
        {"the second of a list", "LANGUAGE", "en:ja", "en_GB.UTF-8"},
        {"another language that begins so", "LANG", "jam", "en_GB.UTF-8"},
        {"any other", "LC_ALL", "de_DE.UTF-8", "en_GB.UTF-8"},
        {"the plain locale", "LANG", "C", "en_GB.UTF-8"},
        {"set and empty", "LC_ALL", "", "en_GB.UTF-8"},
    };
    for (const auto& row : rows) {
        setenv(row.variable, row.value, 1);
        EXPECT_EQ(chosen(), row.locale) << row.why;
        unsetenv(row.variable);
    }
    EXPECT_EQ(chosen(), "en_GB.UTF-8") << "no variable at all";
}

TEST_F(Locale, OfAStrongerVariableWins)
{
    setenv("LANG", "en_GB", 1);
    setenv("LC_ALL", "ja_JP", 1);
    EXPECT_EQ(chosen(), "ja_JP.UTF-8");
}

TEST(BundleLocation, IsTheExecutablesFolderUntilItIsSet)
{
    char folder[1024] = {};
    ASSERT_TRUE(getBundleLocation(folder, sizeof folder));
    EXPECT_EQ(folder, std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
    ASSERT_TRUE(setBundleLocation("/some/where"));
    ASSERT_TRUE(getBundleLocation(folder, sizeof folder));
    EXPECT_STREQ(folder, "/some/where");
    EXPECT_TRUE(setBundleLocation("")); // the executable's folder again
}

// Starts a copy of this program in a folder with a path of this length. Exit code 0: location
// known, 1: unknown.
TEST(BundleLocation, IsUnknownWhereTheExecutablesPathFillsTheBuffer)
{
    if (std::getenv("VYMKIT_TEST_ASK_FOLDER") != nullptr) {
        char folder[2048] = {};
        std::_Exit(getBundleLocation(folder, sizeof folder) ? 0 : 1);
    }
    const TempFolder temp;
    const struct {
        std::size_t length; // of the executable's path
        int answer;
    } rows[] = {{1000, 0}, {1023, 0}, {1024, 1}, {1025, 1}, {1300, 1}};
    for (const auto& row : rows) {
        auto folder = temp.path() / std::to_string(row.length);
        while (folder.string().size() + 205 < row.length)
            folder /= std::string(200, 'f');
        std::filesystem::create_directories(folder);
        const auto program = folder / std::string(row.length - folder.string().size() - 1, 'p');
        ASSERT_EQ(program.string().size(), row.length);
        std::filesystem::copy_file("/proc/self/exe", program);
        const auto command = "VYMKIT_TEST_ASK_FOLDER=1 " + program.string()
            + " --gtest_filter=BundleLocation.IsUnknown* >/dev/null";
        const int status = std::system(command.c_str());
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), row.answer) << row.length;
        std::filesystem::remove(program);
    }
}

TEST(BundleLocation, IsRefusedWhereItDoesNotFit)
{
    char folder[1024] = {};
    ASSERT_TRUE(setBundleLocation("/before"));
    EXPECT_FALSE(setBundleLocation(nullptr));
    EXPECT_FALSE(setBundleLocation(std::string(1024, 'x').c_str()));
    ASSERT_TRUE(getBundleLocation(folder, sizeof folder));
    EXPECT_STREQ(folder, "/before");
    EXPECT_FALSE(getBundleLocation(folder, 7)) << "seven characters and a terminator";
    const std::string longest(1023, 'x');
    EXPECT_TRUE(setBundleLocation(longest.c_str()));
    ASSERT_TRUE(getBundleLocation(folder, sizeof folder));
    EXPECT_EQ(folder, longest);
    EXPECT_TRUE(setBundleLocation(""));
}
