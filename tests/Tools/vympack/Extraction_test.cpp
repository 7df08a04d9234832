// SPDX-License-Identifier: MIT
#include "Tools/vympack/Commands.h"
#include "Tools/vympack/Extraction.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <sstream>

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class VympackExtraction : public testing::Test {
protected:
    int extractFrom(const std::string& bytes, const std::vector<std::string>& names = {},
                    bool force = false)
    {
        const auto path = m_in.write("package", bytes);
        return extractPackage(path, {m_out / "unpacked", names, force}, m_streams);
    }
    static bool isFile(const std::string& path) { return std::filesystem::is_regular_file(path); }

    TempFolder m_in;
    TempFolder m_out;
    std::ostringstream m_results;
    std::ostringstream m_errors;
    Streams m_streams{m_results, m_errors};
};

} // namespace

TEST_F(VympackExtraction, AnEmptyFolderNameIsNoFolder)
{
    const auto path = m_in.write("package", container(goodFiles()));
    EXPECT_EQ(extractPackage(path, {"", {}, false}, m_streams), kExitNoOutput);
}

TEST_F(VympackExtraction, HostileNamesNeverLeaveTheFolder)
{
    const Files files{{"../outside", "x"}, {(m_out / "x").substr(0, 31), "x"},
                      {"a\\b", "x"},       {"..", "x"},
                      {"", "x"},           {"a\nb", "x"},
                      {"sub/file", "x"},   {"fine", "inside"}};
    EXPECT_EQ(extractFrom(container(files)), kExitDefects);
    EXPECT_THAT(m_out.names(), ElementsAre("unpacked"));
    EXPECT_EQ(readFile(m_out / "unpacked/fine"), "inside");
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& item :
         std::filesystem::recursive_directory_iterator(m_out / "unpacked"))
        ++count;
    EXPECT_EQ(count, 1U);
    EXPECT_THAT(m_errors.str(), HasSubstr("a\\x0ab"));
    EXPECT_EQ(m_results.str(), "fine\n");
}

TEST_F(VympackExtraction, ALinkInTheFolderIsNeverWrittenThrough)
{
    m_out.write("outside", "kept");
    std::filesystem::create_directory(m_out / "unpacked");
    std::filesystem::create_symlink("../outside", m_out / "unpacked/main.bin");
    EXPECT_EQ(extractFrom(container(goodFiles()), {"main.bin"}), kExitDefects);
    EXPECT_EQ(extractFrom(container(goodFiles()), {"main.bin"}, true), kExitDone);
    EXPECT_EQ(readFile(m_out / "outside"), "kept");
    EXPECT_EQ(readFile(m_out / "unpacked/main.bin"), "firmware");
}

TEST_F(VympackExtraction, AnExistingFileIsReplacedByForceOnly)
{
    std::filesystem::create_directory(m_out / "unpacked");
    m_out.write("unpacked/main.bin", "mine");
    EXPECT_EQ(extractFrom(container(goodFiles())), kExitDefects);
    EXPECT_EQ(readFile(m_out / "unpacked/main.bin"), "mine");
    EXPECT_TRUE(isFile(m_out / "unpacked/VYMINFO.txt"));
    EXPECT_EQ(extractFrom(container(goodFiles()), {}, true), kExitDone);
    EXPECT_EQ(readFile(m_out / "unpacked/main.bin"), "firmware");
}

TEST_F(VympackExtraction, OnlyTheNamedFilesAreUnpackedAndUnknownNamesAreReported)
{
    EXPECT_EQ(extractFrom(container(goodFiles()), {"main.bin", "none.bin"}), kExitDefects);
    EXPECT_TRUE(isFile(m_out / "unpacked/main.bin"));
    EXPECT_FALSE(isFile(m_out / "unpacked/VYMINFO.txt"));
    EXPECT_THAT(m_errors.str(), HasSubstr("\"none.bin\": there is no such file"));
}

TEST_F(VympackExtraction, OfTwoFilesWithOneNameTheFirstIsUnpacked)
{
    const auto bytes = container({{"main.bin", "first"}, {"main.bin", "second"}});
    EXPECT_EQ(extractFrom(bytes, {}, true), kExitDefects);
    EXPECT_EQ(readFile(m_out / "unpacked/main.bin"), "first");
}

TEST_F(VympackExtraction, DataOutsideThePackageIsNotUnpacked)
{
    const auto bytes = "data" + entry("a", 0, 4) + entry("b", 0, 0xFFFFFFFF)
        + entry(std::string(32, 'c'), 0, 1) + trailer(4, 3);
    EXPECT_EQ(extractFrom(bytes), kExitDefects);
    EXPECT_EQ(readFile(m_out / "unpacked/a"), "data");
    EXPECT_FALSE(isFile(m_out / "unpacked/b"));
}

TEST_F(VympackExtraction, ABrokenContainerUnpacksAndListsNothing)
{
    EXPECT_EQ(extractFrom("no package"), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("[bad-trailer]"));
    EXPECT_FALSE(std::filesystem::exists(m_out / "unpacked"));
    EXPECT_EQ(listPackage(m_in / "package", true, m_streams), kExitDefects);
    EXPECT_EQ(m_results.str(), "");
}
