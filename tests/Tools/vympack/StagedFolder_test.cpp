// SPDX-License-Identifier: MIT
#include "Tools/vympack/Interrupt.h"
#include "Tools/vympack/StagedFolder.h"
#include "tests/Tools/vympack/support.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;

namespace {

class VympackStagedFolder : public testing::Test {
protected:
    [[nodiscard]] std::string path() const { return m_folder / "out"; }
    [[nodiscard]] bool exists(const std::string& name) const
    {
        return std::filesystem::exists(m_folder / name);
    }
    TempFolder m_folder;
};

} // namespace

TEST_F(VympackStagedFolder, FilesAppearTogether)
{
    StagedFolder folder(path());
    ASSERT_TRUE(folder.open());
    ASSERT_TRUE(folder.add("one", "1"));
    ASSERT_TRUE(folder.add("two", "2", AtomicFile::Kind::program));
    EXPECT_FALSE(exists("out/one"));
    ASSERT_TRUE(folder.commit());
    EXPECT_EQ(readFile(m_folder / "out/one"), "1");
    EXPECT_EQ(::access((m_folder / "out/two").c_str(), X_OK), 0);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path()), {}), 2);
}

TEST_F(VympackStagedFolder, WithoutCommitANewFolderGoesAndAnOldOneIsEmptyAgain)
{
    for (const bool isNew : {true, false}) {
        {
            StagedFolder folder(path());
            ASSERT_TRUE(folder.open());
            ASSERT_TRUE(folder.add("one", "1"));
        }
        EXPECT_EQ(exists("out"), !isNew);
        std::filesystem::create_directory(path());
        EXPECT_TRUE(std::filesystem::is_empty(path()));
    }
}

TEST_F(VympackStagedFolder, FoldersThatCannotBeFilledAreRefused)
{
    m_folder.write("file", "");
    std::filesystem::create_directory(m_folder / "full");
    m_folder.write("full/.hidden", "");
    std::filesystem::create_symlink("nowhere", m_folder / "link");
    const struct {
        const char* name;
        int code;
        const char* reason;
    } rows[] = {
        {"file", kExitNoOutput, "not a folder"},
        {"full", kExitDefects, "not empty"},
        {"none/out", kExitNoOutput, "No such file"},
        {"link", kExitNoOutput, "No such file"},
    };
    for (const auto& row : rows) {
        StagedFolder folder(m_folder / row.name);
        EXPECT_FALSE(folder.open()) << row.name;
        EXPECT_EQ(folder.exitCode(), row.code) << row.name;
        EXPECT_THAT(folder.reason(), HasSubstr(row.reason));
    }
    StagedFolder unnamed("");
    EXPECT_FALSE(unnamed.open());
    EXPECT_TRUE(exists("full/.hidden"));
}

TEST_F(VympackStagedFolder, ALinkToAnEmptyFolderIsFollowed)
{
    std::filesystem::create_directory(m_folder / "real");
    std::filesystem::create_directory_symlink("real", path());
    StagedFolder folder(path());
    ASSERT_TRUE(folder.open() && folder.add("one", "1") && folder.commit()) << folder.reason();
    EXPECT_EQ(readFile(m_folder / "real/one"), "1");
}

TEST_F(VympackStagedFolder, AFileThatAppearsMeanwhileIsKeptAndTheOthersGo)
{
    {
        StagedFolder folder(path());
        ASSERT_TRUE(folder.open() && folder.add("one", "1") && folder.add("two", "2"));
        m_folder.write("out/two", "another program's");
        EXPECT_FALSE(folder.commit());
        EXPECT_EQ(folder.exitCode(), kExitDefects);
    }
    EXPECT_EQ(readFile(m_folder / "out/two"), "another program's");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path()), {}), 1);
}

TEST_F(VympackStagedFolder, AFileThatCannotBeReadToItsEndIsNamed)
{
    InputFile from;
    std::string reason;
    ASSERT_TRUE(from.open(m_folder.write("from", "12345678"), reason));
    std::filesystem::resize_file(m_folder / "from", 3);
    StagedFolder folder(path());
    ASSERT_TRUE(folder.open());
    EXPECT_FALSE(folder.add("name", from, AtomicFile::Kind::data));
    EXPECT_THAT(folder.reason(), testing::StartsWith("name: "));
    EXPECT_EQ(folder.exitCode(), kExitNoInput);
}

TEST_F(VympackStagedFolder, ASignalBeforeTheEndLeavesNothing)
{
    const auto interruptedFill = [this] {
        catchInterrupts();
        StagedFolder folder(path());
        const bool isFilled = folder.open() && folder.add("one", "1");
        std::raise(SIGTERM);
        return isFilled && !folder.commit() && folder.exitCode() == kExitInterrupted ? 0 : 1;
    };
    EXPECT_EXIT(std::exit(interruptedFill()), testing::ExitedWithCode(0), "");
    EXPECT_FALSE(exists("out"));
}
