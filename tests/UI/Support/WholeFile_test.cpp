// SPDX-License-Identifier: MIT
#include "UI/Support/WholeFile.h"
#include "tests/support/TempFolder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

std::string contentOf(const fs::path& file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::size_t countIn(const fs::path& folder)
{
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

} // namespace

TEST(WholeFile, WritesANewFileAndReplacesAnOldOne)
{
    const TempFolder folder;
    const auto file = folder.path() / "report.txt";
    EXPECT_EQ(writeWholeFile(file.string(), "first"), "");
    EXPECT_EQ(contentOf(file), "first");
    EXPECT_EQ(writeWholeFile(file.string(), "second"), "");
    EXPECT_EQ(contentOf(file), "second");
    EXPECT_EQ(countIn(folder.path()), 1U);
}

TEST(WholeFile, ReplacesTheFileThatALinkLeadsTo)
{
    const TempFolder folder;
    folder.write("real", "old");
    fs::create_symlink("real", folder.path() / "link");
    EXPECT_EQ(writeWholeFile((folder.path() / "link").string(), "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
    EXPECT_EQ(contentOf(folder.path() / "real"), "new");
}

TEST(WholeFile, LeavesNothingWhereItCannotWrite)
{
    const TempFolder folder;
    EXPECT_NE(writeWholeFile((folder.path() / "none" / "report").string(), "x"), "");
    EXPECT_NE(writeWholeFile(folder.path().string(), "x"), "");
    EXPECT_NE(writeWholeFile("", "x"), "");
    EXPECT_EQ(countIn(folder.path()), 0U);
}

TEST(WholeFile, RefusesADeviceAndAPipe)
{
    const TempFolder folder;
    const auto pipe = (folder.path() / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_NE(writeWholeFile(pipe, "x"), "");
    EXPECT_NE(writeWholeFile("/dev/null", "x"), "");
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}
