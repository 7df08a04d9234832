// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Serve.h"
#include "tests/Tools/vymprinter/program.h"

#include <gmock/gmock.h>

using namespace vymprinter;
using ::testing::HasSubstr;

namespace {

TEST(VymprinterServe, SeveralPrintersGetOneLineEach)
{
    Program program(
        {"--quiet", "--listen", "127.0.0.254:0", "--count", "3", "--listen", "127.0.0.7:0"});
    std::vector<std::string> hosts;
    for (int i = 0; i < 4; ++i)
        hosts.push_back(program.endpoint().host());
    EXPECT_EQ(hosts,
              (std::vector<std::string>{"127.0.0.254", "127.0.0.255", "127.0.1.0", "127.0.0.7"}));
}

TEST(VymprinterServe, StoresAnUpdateAndEndsAfterTheRequestedSessions)
{
    Folder folder;
    Program program(
        {"--listen", "127.0.0.1:0", "--sessions", "1", "--store", folder.path, "--quiet"});
    {
        Updater updater(program.endpoint());
        EXPECT_EQ(updater.status(requests::enter()), 128);
        for (const auto& piece : requests::pieces(requests::firmware(5000), 1000))
            EXPECT_GE(updater.status(piece), 128);
    }
    EXPECT_EQ(program.rest(), "");
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(std::filesystem::file_size(folder.path / "127.0.0.1/MAIN.BIN"), 5000U);
    EXPECT_TRUE(std::filesystem::exists(folder.path / "127.0.0.1/transcript.txt"));
}

TEST(VymprinterServe, PrintersOnOneAddressKeepFoldersApart)
{
    Folder folder;
    Program program(
        {"--listen", "127.0.0.1:0", "--listen", "127.0.0.1:0", "--store", folder.path, "--quiet"});
    for (int i = 0; i < 2; ++i) {
        const auto name = "127.0.0.1-" + std::to_string(program.endpoint().port);
        EXPECT_TRUE(std::filesystem::exists(folder.path / name / "transcript.txt")) << name;
    }
}

TEST(VymprinterServe, FolderThatCannotBeWrittenEndsWithOneAndNamesIt)
{
    Program program({"--listen", "127.0.0.1:0", "--store", "/dev/null"});
    EXPECT_THAT(program.rest(), HasSubstr("/dev/null/127.0.0.1"));
    EXPECT_EQ(program.exitCode(), 1);
}

TEST(VymprinterServe, TakenAddressEndsWithOneAndNamesIt)
{
    const auto taken = vymprinter::listenOn({0x7F000001, 0});
    Program program({"--listen", taken.endpoint.text()});
    EXPECT_THAT(program.rest(), HasSubstr(taken.endpoint.text()));
    EXPECT_EQ(program.exitCode(), 1);
}

// configfs or the controller is missing, or may not be used: the message says which.
TEST(VymprinterServe, ControllerThatIsNotThereEndsWithOneAndSaysWhatToDo)
{
    Program program({"--usb", "no-such-controller"});
    EXPECT_THAT(program.rest(), HasSubstr("cannot "));
    EXPECT_EQ(program.exitCode(), 1);
}

} // namespace
