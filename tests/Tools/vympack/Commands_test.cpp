// SPDX-License-Identifier: MIT
#include "Tools/vympack/Commands.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <sstream>

using namespace vympack;
using namespace vympack_test;
using testing::HasSubstr;

TEST(VympackCommands, AListHasOneLineForEachFile)
{
    const TempFolder folder;
    std::ostringstream results;
    std::ostringstream errors;
    const auto path = folder.write("package", container(goodFiles()));
    EXPECT_EQ(listPackage(path, false, {results, errors}), kExitDone);
    EXPECT_THAT(results.str(), HasSubstr("         8  main.bin\n"));
}

TEST(VympackCommands, ComplaintsAreMadePrintable)
{
    std::ostringstream results;
    std::ostringstream errors;
    complain({results, errors}, "a\x1B", "b\n");
    EXPECT_EQ(errors.str(), "vympack: a\\x1b: b\\x0a\n");
    InputFile file;
    EXPECT_FALSE(openInput("/none", file, {results, errors}));
    EXPECT_THAT(errors.str(), HasSubstr("No such file"));
    EXPECT_EQ(results.str(), "");
}
