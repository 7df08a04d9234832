// Making and unpacking: what is on the disk afterwards.
#include "Tools/vympack/AtomicFile.h"
#include "Tools/vympack/Commands.h"
#include "Tools/vympack/Interrupt.h"
#include "tests/Tools/vympack_support.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <sstream>
#include <sys/stat.h>

using namespace vympack;
using namespace vympack_test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class VympackFiles : public testing::Test {
protected:
    int make(const std::vector<std::string>& names)
    {
        std::vector<std::string> paths;
        for (const auto& name : names)
            paths.push_back(m_in.path(name));
        return makePackage(m_out.path("package"), paths, m_streams);
    }
    int extractFrom(const std::string& bytes, const std::vector<std::string>& names = {},
                    bool force = false)
    {
        const auto path = m_in.write("package", bytes);
        return extractPackage(path, {m_out.path("unpacked"), names, force}, m_streams);
    }
    void writeGoodInputs() const
    {
        for (const auto& [name, bytes] : goodFiles())
            m_in.write(name, bytes);
    }
    static bool isFile(const std::string& path) { return std::filesystem::is_regular_file(path); }

    TempFolder m_in;
    TempFolder m_out;
    std::ostringstream m_results;
    std::ostringstream m_errors;
    Streams m_streams{m_results, m_errors};
};

} // namespace

TEST_F(VympackFiles, MakeWritesExactlyTheLayout)
{
    writeGoodInputs();
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDone) << m_errors.str();
    EXPECT_EQ(m_out.read("package"), container(goodFiles()));
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
}

TEST_F(VympackFiles, ASmallPackageHasTheseBytes)
{
    const auto text = goodDescription();
    ASSERT_EQ(text.size(), 0xFFU) << "the numbers below are for a text of this size";
    using namespace std::string_literals;
    const auto bytes = text + "firmware"
        + "VYMINFO.txt\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
          "\x00\x00\x00\x00\xFF\x00\x00\x00"s
        + "main.bin\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
          "\xFF\x00\x00\x00\x08\x00\x00\x00"s
        + "\x07\x01\x00\x00\x02\x00\x00\x00VYMBIND\0"s;
    writeGoodInputs();
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDone);
    EXPECT_EQ(m_out.read("package"), bytes);
}

TEST_F(VympackFiles, WhatMakeWritesPassesCheckAndUnpacksToTheSame)
{
    writeGoodInputs();
    const std::string image(700'000, '\xA5'); // more than one piece of a copy
    m_in.write("main.bin", image);
    ASSERT_EQ(make({"main.bin", "VYMINFO.txt"}), kExitDone);
    EXPECT_EQ(checkPackage(m_out.path("package"), false, m_streams), kExitDone);
    EXPECT_THAT(m_results.str(), HasSubstr("0 errors, 0 warnings"));
    EXPECT_EQ(extractFrom(m_out.read("package")), kExitDone);
    EXPECT_EQ(m_out.read("unpacked/main.bin"), image);
    EXPECT_EQ(m_out.read("unpacked/VYMINFO.txt"), goodDescription());
}

TEST_F(VympackFiles, ARefusedMakeKeepsTheOldPackageAndLeavesNothingElse)
{
    writeGoodInputs();
    m_out.write("package", "old");
    m_in.write("VYMINFO.txt", replaced(goodDescription(), "TGMNAME", "TGMNAM"));
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("[missing-key]"));
    EXPECT_EQ(m_out.read("package"), "old");
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
}

TEST_F(VympackFiles, MakeNamesEveryReasonOfARefusal)
{
    writeGoodInputs();
    const std::string longName(32, 'n');
    m_in.write(longName, "x");
    m_in.write("a\\b", "x");
    m_in.write("VYMINFO.txt", replaced(goodDescription(), "48350", "0"));
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin", "main.bin", longName, "a\\b"}), kExitDefects);
    for (const char* name :
         {"[bad-number]", "[duplicate-name]", "[name-too-long]", "[name-unsafe]"})
        EXPECT_THAT(m_errors.str(), HasSubstr(name));
    EXPECT_THAT(m_errors.str(), HasSubstr(m_in.path("VYMINFO.txt") + ":5:8: error"));
    EXPECT_TRUE(m_out.names().empty());
}

TEST_F(VympackFiles, ANameOf31CharactersFits)
{
    const std::string name(31, 'n');
    m_in.write("VYMINFO.txt", replaced(goodDescription(), "main.bin", name));
    m_in.write(name, "firmware");
    EXPECT_EQ(make({"VYMINFO.txt", name}), kExitDone) << m_errors.str();
}

TEST_F(VympackFiles, InputsBeyond32BitPositionsAreRefused)
{
    writeGoodInputs();
    std::filesystem::resize_file(m_in.path("main.bin"), kMostBytes); // sparse: takes no room
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("[package-too-large]"));
}

TEST_F(VympackFiles, MakeReadsRegularFilesOnly)
{
    writeGoodInputs();
    ASSERT_EQ(::mkfifo(m_in.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(make({"VYMINFO.txt", "pipe"}), kExitNoInput);
    EXPECT_EQ(make({"VYMINFO.txt", "none.bin"}), kExitNoInput);
    EXPECT_EQ(makePackage(m_out.path("package"), {m_in.path("")}, m_streams), kExitNoInput);
}

TEST_F(VympackFiles, MakeDoesNotReplaceItsOwnInput)
{
    writeGoodInputs();
    const auto image = m_in.path("main.bin");
    EXPECT_EQ(makePackage(image, {m_in.path("VYMINFO.txt"), image}, m_streams), kExitUsage);
    EXPECT_EQ(m_in.read("main.bin"), "firmware");
}

TEST_F(VympackFiles, MakeFollowsALinkAndKeepsPermissions)
{
    writeGoodInputs();
    ASSERT_EQ(::chmod(m_out.write("real", "old").c_str(), 0640), 0);
    std::filesystem::create_symlink("real", m_out.path("package"));
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDone);
    EXPECT_TRUE(std::filesystem::is_symlink(m_out.path("package")));
    EXPECT_EQ(m_out.read("real"), container(goodFiles()));
    struct stat status { };
    ASSERT_EQ(::stat(m_out.path("real").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(VympackFiles, AnOutputThatIsNoFileIsNotReplaced)
{
    writeGoodInputs();
    std::filesystem::create_directory(m_out.path("package"));
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitNoOutput);
    EXPECT_TRUE(std::filesystem::is_directory(m_out.path("package")));
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
}

TEST_F(VympackFiles, AnOutputFolderThatIsMissingIsSaid)
{
    writeGoodInputs();
    const std::vector<std::string> inputs{m_in.path("VYMINFO.txt"), m_in.path("main.bin")};
    EXPECT_EQ(makePackage(m_out.path("none/package"), inputs, m_streams), kExitNoOutput);
}

TEST_F(VympackFiles, AFileNotCommittedLeavesNothingBehind)
{
    {
        AtomicFile file(m_out.path("package"));
        ASSERT_TRUE(file.open());
        ASSERT_TRUE(file.write("half", 4));
        EXPECT_EQ(m_out.names().size(), 1U);
    }
    EXPECT_TRUE(m_out.names().empty());
}

TEST_F(VympackFiles, ASignalToEndStopsTheWritingAndLeavesNothingBehind)
{
    const auto writeAfterSignal = [this] {
        catchInterrupts();
        std::raise(SIGTERM);
        AtomicFile file(m_out.path("package"));
        return file.open() && !file.write("x", 1) && file.reason() == "interrupted" ? 0 : 1;
    };
    EXPECT_EXIT(std::exit(writeAfterSignal()), testing::ExitedWithCode(0), "");
    EXPECT_TRUE(m_out.names().empty());
}

TEST_F(VympackFiles, AnEmptyFolderNameIsNoFolder)
{
    const auto path = m_in.write("package", container(goodFiles()));
    EXPECT_EQ(extractPackage(path, {"", {}, false}, m_streams), kExitNoOutput);
}

TEST_F(VympackFiles, ACopyOfMoreThanThereIsFails)
{
    InputFile from;
    std::string reason;
    ASSERT_TRUE(from.open(m_in.write("short", "12345678"), reason));
    AtomicFile file(m_out.path("package"));
    ASSERT_TRUE(file.open());
    EXPECT_FALSE(file.copy(from, 4, 5));
    EXPECT_THAT(file.reason(), HasSubstr("cannot be read to its end"));
}

TEST_F(VympackFiles, HostileNamesNeverLeaveTheFolder)
{
    const Files files{{"../outside", "x"}, {m_out.path("x").substr(0, 31), "x"},
                      {"a\\b", "x"},       {"..", "x"},
                      {"", "x"},           {"a\nb", "x"},
                      {"sub/file", "x"},   {"fine", "inside"}};
    EXPECT_EQ(extractFrom(container(files)), kExitDefects);
    EXPECT_THAT(m_out.names(), ElementsAre("unpacked"));
    EXPECT_EQ(m_out.read("unpacked/fine"), "inside");
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& item :
         std::filesystem::recursive_directory_iterator(m_out.path("unpacked")))
        ++count;
    EXPECT_EQ(count, 1U);
    EXPECT_THAT(m_errors.str(), HasSubstr("a\\x0ab"));
    EXPECT_EQ(m_results.str(), "fine\n");
}

TEST_F(VympackFiles, ALinkInTheFolderIsNeverWrittenThrough)
{
    m_out.write("outside", "kept");
    std::filesystem::create_directory(m_out.path("unpacked"));
    std::filesystem::create_symlink("../outside", m_out.path("unpacked/main.bin"));
    EXPECT_EQ(extractFrom(container(goodFiles()), {"main.bin"}), kExitDefects);
    EXPECT_EQ(extractFrom(container(goodFiles()), {"main.bin"}, true), kExitDone);
    EXPECT_EQ(m_out.read("outside"), "kept");
    EXPECT_EQ(m_out.read("unpacked/main.bin"), "firmware");
}

TEST_F(VympackFiles, AnExistingFileIsReplacedByForceOnly)
{
    std::filesystem::create_directory(m_out.path("unpacked"));
    m_out.write("unpacked/main.bin", "mine");
    EXPECT_EQ(extractFrom(container(goodFiles())), kExitDefects);
    EXPECT_EQ(m_out.read("unpacked/main.bin"), "mine");
    EXPECT_TRUE(isFile(m_out.path("unpacked/VYMINFO.txt")));
    EXPECT_EQ(extractFrom(container(goodFiles()), {}, true), kExitDone);
    EXPECT_EQ(m_out.read("unpacked/main.bin"), "firmware");
}

TEST_F(VympackFiles, OnlyTheNamedFilesAreUnpackedAndUnknownNamesAreSaid)
{
    EXPECT_EQ(extractFrom(container(goodFiles()), {"main.bin", "none.bin"}), kExitDefects);
    EXPECT_TRUE(isFile(m_out.path("unpacked/main.bin")));
    EXPECT_FALSE(isFile(m_out.path("unpacked/VYMINFO.txt")));
    EXPECT_THAT(m_errors.str(), HasSubstr("\"none.bin\": there is no such file"));
}

TEST_F(VympackFiles, OfTwoFilesWithOneNameTheFirstIsUnpacked)
{
    const auto bytes = container({{"main.bin", "first"}, {"main.bin", "second"}});
    EXPECT_EQ(extractFrom(bytes, {}, true), kExitDefects);
    EXPECT_EQ(m_out.read("unpacked/main.bin"), "first");
}

TEST_F(VympackFiles, DataOutsideThePackageIsNotUnpacked)
{
    const auto bytes = "data" + entry("a", 0, 4) + entry("b", 0, 0xFFFFFFFF)
        + entry(std::string(32, 'c'), 0, 1) + trailer(4, 3);
    EXPECT_EQ(extractFrom(bytes), kExitDefects);
    EXPECT_EQ(m_out.read("unpacked/a"), "data");
    EXPECT_FALSE(isFile(m_out.path("unpacked/b")));
}

TEST_F(VympackFiles, ABrokenContainerUnpacksAndListsNothing)
{
    EXPECT_EQ(extractFrom("no package"), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("[bad-trailer]"));
    EXPECT_FALSE(std::filesystem::exists(m_out.path("unpacked")));
    EXPECT_EQ(listPackage(m_in.path("package"), true, m_streams), kExitDefects);
    EXPECT_EQ(m_results.str(), "");
}
