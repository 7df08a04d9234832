// SPDX-License-Identifier: MIT
#include "UI/Run/LogFolder.h"
#include "tests/support/TempFolder.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

// An environment variable for the length of a test; none takes it away.
class Setting {
public:
    Setting(const char* name, const char* value) : m_name(name)
    {
        if (const char* former = std::getenv(name); former != nullptr)
            m_former = former;
        set(value);
    }
    ~Setting() { set(m_former.has_value() ? m_former->c_str() : nullptr); }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

private:
    void set(const char* value)
    {
        if (value != nullptr)
            setenv(m_name, value, 1);
        else
            unsetenv(m_name);
    }

    const char* m_name;
    std::optional<std::string> m_former;
};

// Makes a log as a run does, and closes it.
std::string newLog(const std::string& folder)
{
    const auto log = createLog(folder);
    EXPECT_EQ(log.problem, "");
    EXPECT_EQ(close(log.descriptor), 0);
    return log.path;
}

std::size_t countIn(const std::filesystem::path& folder)
{
    const std::filesystem::directory_iterator all(folder);
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

std::string oldName(std::size_t number)
{
    return "run-20010101T000000." + std::to_string(100 + number) + "Z-1.log";
}

// The i-th log of the day that was this many days ago.
std::string nameDaysAgo(int days, std::size_t i)
{
    const auto then = std::time(nullptr) - static_cast<std::time_t>(days) * 24 * 3600;
    std::tm time{};
    gmtime_r(&then, &time);
    std::array<char, 32> date{};
    std::strftime(date.data(), date.size(), "run-%Y%m%dT%H%M%S.", &time);
    return date.data() + std::to_string(100 + i) + "Z-1.log";
}

} // namespace

TEST(LogFolder, IsWhereTheEnvironmentSays)
{
    const struct {
        const char* why;
        const char* state;
        const char* home;
        const char* folder;
    } rows[] = {
        {"its own place", "/state", "/home/a", "/state/vymkit"},
        {"the usual place", nullptr, "/home/a", "/home/a/.local/state/vymkit"},
        {"set to nothing", "", "/home/a", "/home/a/.local/state/vymkit"},
        {"a relative place is not to be used", "state", "/home/a", "/home/a/.local/state/vymkit"},
        {"no home", nullptr, nullptr, ""},
        {"a relative home", nullptr, "home", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const Setting state("XDG_STATE_HOME", row.state);
        const Setting home("HOME", row.home);
        EXPECT_EQ(logFolder(), row.folder);
    }
}

TEST(LogFolder, KnowsTheNamesOfLogs)
{
    EXPECT_TRUE(isLogName("run-20261121T033509.123Z-4711.log"));
    EXPECT_TRUE(isLogName("run-20261121T033509.123Z-1.log"));
    for (const char* name :
         {"", ".log", "run-.log", "run-20261121T033509.123Z-.log", "run-20261121T033509.123Z-1.txt",
          "run-20261121T033509.123Z-1.log~", "run-20261121T033509.123Z-x.log",
          "run-2026112xT033509.123Z-1.log", "Run-20261121T033509.123Z-1.log",
          "notes run-20261121T033509.123Z-1.log", "run-20261121T033509.123Z-1.log.log"})
        EXPECT_FALSE(isLogName(name)) << name;
}

TEST(LogFolder, IsMadeForItsOwnerAloneWhereItIsMissing)
{
    const TempFolder home;
    const auto path = newLog(home / "a/b/vymkit");
    struct stat facts { };
    ASSERT_EQ(stat((home / "a").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0700U);
    ASSERT_EQ(stat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600U);
    EXPECT_TRUE(isLogName(path.substr((home / "a/b/vymkit/").size())));
}

TEST(LogFolder, GivesEachLogANameOfItsOwnThatSortsByTime)
{
    const TempFolder folder;
    std::vector<std::string> paths;
    for (int i = 0; i < 20; ++i)
        paths.push_back(newLog(folder.path()));
    EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end()));
    EXPECT_EQ(std::adjacent_find(paths.begin(), paths.end()), paths.end());
}

TEST(LogFolder, KeepsTheNewestLogs)
{
    const TempFolder folder;
    for (std::size_t i = 0; i < kKeptLogs + 5; ++i)
        folder.write(oldName(i), "");
    const auto path = newLog(folder.path());
    EXPECT_EQ(countIn(folder.path()), kKeptLogs);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_FALSE(std::filesystem::exists(folder / oldName(5)));
    EXPECT_TRUE(std::filesystem::exists(folder / oldName(6)));
}

TEST(LogFolder, KeepsTheNewLogWhereTheClockWasSetBack)
{
    const TempFolder folder;
    for (std::size_t i = 0; i < kKeptLogs; ++i)
        folder.write("run-99990101T000000." + std::to_string(100 + i) + "Z-1.log", "");
    const auto path = newLog(folder.path());
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(countIn(folder.path()), kKeptLogs + 1); // none of them is old
}

TEST(LogFolder, KeepsMoreThanTheNewestWhileTheyAreYoung)
{
    const TempFolder folder;
    for (std::size_t i = 0; i < kKeptLogs + 5; ++i)
        folder.write(nameDaysAgo(kKeptDays - 1, i), "");
    folder.write(nameDaysAgo(kKeptDays + 1, 0), "");
    newLog(folder.path());
    EXPECT_EQ(countIn(folder.path()), kKeptLogs + 6);
    EXPECT_FALSE(std::filesystem::exists(folder / nameDaysAgo(kKeptDays + 1, 0)));
}

TEST(LogFolder, KeepsOnlyTheNewestWhereAllTogetherAreLarge)
{
    const TempFolder folder;
    for (std::size_t i = 0; i < kKeptLogs + 5; ++i) {
        const auto name = nameDaysAgo(1, i);
        folder.write(name, "");
        std::filesystem::resize_file(folder / name, kMostLogBytes / kKeptLogs); // all holes
    }
    newLog(folder.path());
    EXPECT_EQ(countIn(folder.path()), kKeptLogs + 1); // the last one that fits, and the new one
}

TEST(LogFolder, ListsItsLogsNewestFirst)
{
    const TempFolder folder;
    folder.write(oldName(1), "");
    folder.write(oldName(2), "");
    folder.write("notes.txt", "");
    EXPECT_EQ(logNames(folder.path()), (std::vector<std::string>{oldName(2), oldName(1)}));
    EXPECT_TRUE(logNames("/nowhere").empty());
}

TEST(LogFolder, RemovesNothingThatIsNoLog)
{
    const TempFolder elsewhere;
    elsewhere.write("precious", "text");
    const TempFolder folder;
    for (std::size_t i = 10; i < kKeptLogs + 20; ++i)
        folder.write(oldName(i), "");
    folder.write("notes.txt", "mine");
    folder.write("run-20010101T000000.100Z-1.log.bak", "mine");
    std::filesystem::create_symlink(elsewhere / "precious", folder / oldName(0));
    std::filesystem::create_directory(folder / oldName(1));
    newLog(folder.path());
    for (const auto& kept :
         {std::string("notes.txt"), std::string("run-20010101T000000.100Z-1.log.bak"), oldName(1)})
        EXPECT_TRUE(std::filesystem::exists(folder / kept)) << kept;
    EXPECT_TRUE(std::filesystem::is_symlink(folder / oldName(0)));
    EXPECT_EQ(readFile(elsewhere / "precious"), "text");
    EXPECT_EQ(countIn(folder.path()), kKeptLogs + 4);
}

TEST(LogFolder, ThatCannotBeUsedIsReportedAsAProblem)
{
    const TempFolder folder;
    folder.write("file", "");
    EXPECT_EQ(createLog("").problem, "no folder for it is known: HOME is not set");
    EXPECT_EQ(createLog(folder / "file/vymkit").problem, folder / "file/vymkit: Not a directory");
    const auto log = createLog("/proc/vymkit"); // read-only even for the superuser
    EXPECT_EQ(log.problem, "/proc/vymkit: No such file or directory");
    EXPECT_EQ(log.descriptor, -1);
    EXPECT_EQ(log.path, "");
}
