// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Options.h"
#include "tests/Tools/vymprinter/program.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterOptions, HandsOutTheBytesOfAGivenFile)
{
    Folder folder;
    std::ofstream(folder.path / "info") << "TGMNAME X\nany bytes";
    Program program({"--listen", "127.0.0.1:0", "--target-info", folder.path / "info"});
    const auto block = Updater(program.endpoint()).ask(requests::getFile());
    ASSERT_GT(block.size(), 28U);
    EXPECT_EQ(std::string(block.begin() + 28, block.end()), "TGMNAME X\nany bytes");
}

TEST(VymprinterOptions, WrongUsageEndsWithSixtyFourAndSaysWhy)
{
    const struct {
        std::vector<std::string> arguments;
        const char* says;
    } rows[] = {
        {{"--listen", "localhost"}, "127.0.0.1:48350"},
        {{"--fault", "slient"}, "did you mean silent?"},
        {{"--replies", "some"}, "every, tenths, last or none"},
        {{"--firmware", "MAIN"}, "NAME=VERSION"},
        {{"--firmware", "MAIN="}, "NAME=VERSION"},
        {{"--max-packet", "60"}, "61"},
        {{"--block-size", "28"}, "29"},
        {{"--count", "0"}, "1"},
        {{"--listen", "255.255.255.255", "--count", "2"}, "not that many addresses"},
        {{"--target-info", "/no/such/file"}, "/no/such/file"},
        {{"--write-rate", "-1"}, "--write-rate"},
        {{"--model", "a\"b"}, "quotes"},
        {{"--usb", "any", "--listen", "127.0.0.1"}, "not both"},
        {{"--updated", "MAIN=01.01"}, "needs --restart"},
        {{"--restart", "1", "--updated", "MAIN"}, "NAME=VERSION"},
        {{"--fault", "gone"}, "needs --restart"},
        {{"--restart", "-1"}, "--restart"},
        {{"--restart", "1", "--usb", "any"}, "over TCP only"},
        {{"--fault", "halt-in@enter"}, "needs a printer with --usb"},
        {{"--nonsense"}, "--nonsense"},
        {{"stray"}, "stray"},
    };
    for (const auto& row : rows) {
        Program program(row.arguments);
        EXPECT_THAT(program.rest(), HasSubstr(row.says));
        EXPECT_EQ(program.exitCode(), 64) << row.arguments[0];
    }
}

TEST(VymprinterOptions, HelpVersionAndFaultListAreShown)
{
    const struct {
        std::vector<std::string> arguments;
        const char* says;
    } rows[] = {
        {{"--help"}, "Examples:"},
        {{"--version"}, "vymprinter 1."},
        {{"--fault", "list"}, "busy-forever: says that it is still writing"},
    };
    for (const auto& row : rows) {
        Program program(row.arguments);
        EXPECT_THAT(program.rest(), HasSubstr(row.says));
        EXPECT_EQ(program.exitCode(), 0);
    }
}

} // namespace
