// SPDX-License-Identifier: MIT
#include "Tools/vympack/CheckCommand.h"
#include "Tools/vympack/MakeCommand.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <sstream>
#include <sys/stat.h>

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class VympackMake : public testing::Test {
protected:
    int make(const std::vector<std::string>& names) { return make(names, {}); }
    int make(const std::vector<std::string>& names, MakeOrder order)
    {
        order.path = m_out / "package";
        for (const auto& name : names)
            order.inputs.push_back(m_in / name);
        return makePackage(order, m_streams);
    }
    static MakeOrder forced()
    {
        MakeOrder order;
        order.force = true;
        return order;
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

TEST_F(VympackMake, MakeWritesExactlyTheLayout)
{
    writeGoodInputs();
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDone) << m_errors.str();
    EXPECT_EQ(readFile(m_out / "package"), container(goodFiles()));
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
}

TEST_F(VympackMake, ASmallPackageHasTheseBytes)
{
    const auto text = goodDescription();
    ASSERT_EQ(text.size(), 0x11EU) << "the numbers below are for a text of this size";
    using namespace std::string_literals;
    const auto bytes = text + "firmware"
        + "VYMINFO.txt\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
          "\x00\x00\x00\x00\x1E\x01\x00\x00"s
        + "main.bin\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
          "\x1E\x01\x00\x00\x08\x00\x00\x00"s
        + "\x26\x01\x00\x00\x02\x00\x00\x00VYMBIND\0"s;
    writeGoodInputs();
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDone);
    EXPECT_EQ(readFile(m_out / "package"), bytes);
}

TEST_F(VympackMake, WhatMakeWritesPassesCheckAndUnpacksToTheSame)
{
    writeGoodInputs();
    const std::string image(700'000, '\xA5'); // copied in more than one piece
    m_in.write("main.bin", image);
    ASSERT_EQ(make({"main.bin", "VYMINFO.txt"}), kExitDone);
    EXPECT_EQ(checkPackage({m_out / "package"}, m_streams), kExitDone);
    EXPECT_THAT(m_results.str(), HasSubstr("0 errors, 0 warnings"));
    const ExtractionOrder unpack{m_out / "unpacked", {}, false};
    EXPECT_EQ(extractPackage(m_out / "package", unpack, m_streams), kExitDone);
    EXPECT_EQ(readFile(m_out / "unpacked/main.bin"), image);
    EXPECT_EQ(readFile(m_out / "unpacked/VYMINFO.txt"), goodDescription());
}

TEST_F(VympackMake, ARefusedMakeKeepsTheOldPackageAndLeavesNothingElse)
{
    writeGoodInputs();
    m_out.write("package", "old");
    m_in.write("VYMINFO.txt", replaced(goodDescription(), "TGMNAME", "TGMNAM"));
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("[missing-key]"));
    EXPECT_EQ(readFile(m_out / "package"), "old");
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
}

TEST_F(VympackMake, MakeNamesEveryReasonOfARefusal)
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
    EXPECT_THAT(m_errors.str(), HasSubstr(m_in / "VYMINFO.txt" + ":5:8: error"));
    EXPECT_TRUE(m_out.names().empty());
}

TEST_F(VympackMake, ANameOf31CharactersFits)
{
    const std::string name(31, 'n');
    m_in.write("VYMINFO.txt", replaced(goodDescription(), "main.bin", name));
    m_in.write(name, "firmware");
    EXPECT_EQ(make({"VYMINFO.txt", name}), kExitDone) << m_errors.str();
}

TEST_F(VympackMake, InputsBeyond32BitPositionsAreRefused)
{
    writeGoodInputs();
    std::filesystem::resize_file(m_in / "main.bin", kMostBytes); // sparse: needs no disk space
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("[package-too-large]"));
}

TEST_F(VympackMake, MakeReadsRegularFilesOnly)
{
    writeGoodInputs();
    ASSERT_EQ(::mkfifo((m_in / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(make({"VYMINFO.txt", "pipe"}), kExitNoInput);
    EXPECT_EQ(make({"VYMINFO.txt", "none.bin"}), kExitNoInput);
    EXPECT_EQ(make({""}), kExitNoInput);
}

TEST_F(VympackMake, MakeDoesNotReplaceItsOwnInput)
{
    writeGoodInputs();
    const auto image = m_in / "main.bin";
    EXPECT_EQ(makePackage({image, {m_in / "VYMINFO.txt", image}}, m_streams), kExitUsage);
    EXPECT_EQ(readFile(m_in / "main.bin"), "firmware");
}

TEST_F(VympackMake, MakeFollowsALinkAndKeepsPermissions)
{
    writeGoodInputs();
    ASSERT_EQ(::chmod(m_out.write("real", "old").c_str(), 0640), 0);
    std::filesystem::create_symlink("real", m_out / "package");
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}, forced()), kExitDone);
    EXPECT_TRUE(std::filesystem::is_symlink(m_out / "package"));
    EXPECT_EQ(readFile(m_out / "real"), container(goodFiles()));
    struct stat status { };
    ASSERT_EQ(::stat((m_out / "real").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(VympackMake, AnOutputThatIsNoFileIsNotReplaced)
{
    writeGoodInputs();
    std::filesystem::create_directory(m_out / "package");
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitNoOutput);
    EXPECT_TRUE(std::filesystem::is_directory(m_out / "package"));
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
}

TEST_F(VympackMake, AMissingOutputFolderIsReported)
{
    writeGoodInputs();
    const std::vector<std::string> inputs{m_in / "VYMINFO.txt", m_in / "main.bin"};
    EXPECT_EQ(makePackage({m_out / "none/package", inputs}, m_streams), kExitNoOutput);
}

TEST_F(VympackMake, AnExistingPackageIsReplacedByForceOnly)
{
    writeGoodInputs();
    m_out.write("package", "old");
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDefects);
    EXPECT_THAT(m_errors.str(), HasSubstr("exists already; --force replaces it"));
    EXPECT_EQ(readFile(m_out / "package"), "old");
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}, forced()), kExitDone);
    EXPECT_EQ(readFile(m_out / "package"), container(goodFiles()));
}

TEST_F(VympackMake, ADanglingLinkIsKeptWithoutForce)
{
    writeGoodInputs();
    std::filesystem::create_symlink("nowhere", m_out / "package");
    EXPECT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDefects);
    EXPECT_THAT(m_out.names(), ElementsAre("package"));
}

TEST_F(VympackMake, SaysWhatItWroteWithDigests)
{
    writeGoodInputs();
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}), kExitDone);
    EXPECT_THAT(m_results.str(), HasSubstr("package: 2 files, 390 bytes, SHA-256 "));
    // The output of sha256sum for the eight bytes "firmware".
    EXPECT_THAT(m_results.str(),
                HasSubstr("         8  "
                          "c3bf47ea1f4a4a605470313cacb3a44f4a461f68c6faeab07e737610cb5ac835"
                          "  main.bin\n"));
}

TEST_F(VympackMake, SortedPackagesAreTheSameWhateverTheOrderOfTheirFiles)
{
    writeGoodInputs();
    MakeOrder sorted = forced();
    sorted.sort = true;
    ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}, sorted), kExitDone);
    const auto first = readFile(m_out / "package");
    ASSERT_EQ(make({"main.bin", "VYMINFO.txt"}, sorted), kExitDone);
    EXPECT_EQ(readFile(m_out / "package"), first);
    ASSERT_EQ(make({"main.bin", "VYMINFO.txt"}, forced()), kExitDone);
    EXPECT_NE(readFile(m_out / "package"), first);
}

TEST_F(VympackMake, RowEndsOfAnyKindBecomeCrLfOnRequest)
{
    const struct {
        const char *why, *rowEnd;
    } rows[] = {{"line feeds", "\n"}, {"carriage returns", "\r"}, {"as they are meant", "\r\n"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        writeGoodInputs();
        std::string text;
        for (const char c : goodDescription())
            text += c == '\n' ? row.rowEnd : std::string(c == '\r' ? 0 : 1, c);
        m_in.write("VYMINFO.txt", text);
        MakeOrder order = forced();
        order.crlf = true;
        ASSERT_EQ(make({"VYMINFO.txt", "main.bin"}, order), kExitDone) << m_errors.str();
        EXPECT_EQ(readFile(m_out / "package"), container(goodFiles()));
    }
}
