// SPDX-License-Identifier: MIT
#include "Tools/vympack/CheckCommand.h"
#include "Tools/vympack/InitCommand.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <sstream>

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;
using testing::Not;

namespace {

class VympackInit : public testing::Test {
protected:
    int init(InitOrder order = {})
    {
        order.path = order.path == "VYMINFO.txt" ? m_folder / "VYMINFO.txt" : order.path;
        return writeDescription(order, m_streams);
    }
    static InitOrder with(const std::string& firmware)
    {
        InitOrder order;
        order.firmware = {firmware};
        return order;
    }

    TempFolder m_folder;
    std::ostringstream m_results;
    std::ostringstream m_errors;
    Streams m_streams{m_results, m_errors};
};

} // namespace

TEST_F(VympackInit, WhatItWritesPassesCheckAtOnce)
{
    ASSERT_EQ(init(), kExitDone) << m_errors.str();
    EXPECT_THAT(m_results.str(), HasSubstr("replace the model \"Model 100\" and the example row"));
    EXPECT_EQ(checkPackage({m_folder / "VYMINFO.txt", false, true}, m_streams), kExitDone);
    const auto text = readFile(m_folder / "VYMINFO.txt");
    for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; ++at)
        ASSERT_EQ(text[at - 1], '\r') << at;
}

TEST_F(VympackInit, TheFirmwareThatIsNamedHasItsRows)
{
    InitOrder order;
    order.model = "Model (200)";
    order.firmware = {"MAIN=AB010203:out/main.bin:Main controller", "BOOT=01.20:boot.bin"};
    ASSERT_EQ(init(order), kExitDone) << m_errors.str();
    const auto text = readFile(m_folder / "VYMINFO.txt");
    EXPECT_THAT(text,
                HasSubstr("\r\nVERSION MAIN=AB010203 out/main.bin MAIN.BIN"
                          " DISPFIRM=\"Main controller\"\r\n"));
    EXPECT_THAT(text, HasSubstr("\r\nVERSION BOOT=01.20 boot.bin BOOT.BIN\r\n"));
    EXPECT_THAT(text, HasSubstr("\r\nDEVICEIDMODELNAME \"Model (200)\"\r\n"));
    EXPECT_THAT(text, Not(HasSubstr("replace")));
    EXPECT_EQ(checkPackage({m_folder / "VYMINFO.txt", false, true}, m_streams), kExitDone);
}

TEST_F(VympackInit, AnExistingFileIsReplacedByForceOnly)
{
    m_folder.write("VYMINFO.txt", "mine");
    EXPECT_EQ(init(), kExitDefects);
    EXPECT_EQ(readFile(m_folder / "VYMINFO.txt"), "mine");
    InitOrder order;
    order.force = true;
    EXPECT_EQ(init(order), kExitDone);
    EXPECT_NE(readFile(m_folder / "VYMINFO.txt"), "mine");
}

TEST_F(VympackInit, WordsThatWouldBreakTheDescriptionAreRefused)
{
    const struct {
        const char* why;
        InitOrder order;
        int code;
    } rows[] = {
        {"no file", with("MAIN=AB010203"), kExitUsage},
        {"no version", with("MAIN=:main.bin"), kExitUsage},
        {"no name", with("=AB010203:main.bin"), kExitUsage},
        {"an empty file", with("MAIN=AB010203:"), kExitUsage},
        {"a blank in the file", with("MAIN=AB010203:main 1.bin"), kExitUsage},
        {"a row of its own", with("MAIN=AB010203:main.bin:X\r\nTGMNAME Y"), kExitUsage},
        {"a quote", with("MAIN=AB010203:main.bin:a \"b\""), kExitUsage},
        {"a form that is none", with("MAIN=1.2.3:main.bin"), kExitDefects},
        {"a name with a digit", with("MAIN2=AB010203:main.bin"), kExitDefects},
        {"a name that cannot be shown", with("MAIN=AB010203:main.bin:\x1B[2J"), kExitDefects},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(init(row.order), row.code) << m_errors.str();
        EXPECT_TRUE(m_folder.names().empty());
    }
    InitOrder order;
    order.model = "a\r\nb";
    EXPECT_EQ(init(order), kExitUsage);
}

TEST_F(VympackInit, ALongImageNameIsCutTowardsThePrinter)
{
    ASSERT_EQ(init(with("MAIN=AB010203:" + std::string(40, 'n'))), kExitDone) << m_errors.str();
    EXPECT_THAT(readFile(m_folder / "VYMINFO.txt"), HasSubstr(" " + std::string(31, 'N') + "\r\n"));
}

TEST_F(VympackInit, TheStandardOutputGetsTheTextAlone)
{
    InitOrder order;
    order.path = "-";
    ASSERT_EQ(init(order), kExitDone);
    EXPECT_THAT(m_results.str(), testing::StartsWith("# A package's description."));
    EXPECT_THAT(m_results.str(), testing::EndsWith("\r\n"));
}
