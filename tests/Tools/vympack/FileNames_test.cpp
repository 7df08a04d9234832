// SPDX-License-Identifier: MIT
#include "Tools/vympack/FileNames.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>

using namespace vympack;
using namespace vympack_test;
using testing::Contains;
using testing::ElementsAre;

TEST(VympackFileNames, NoNameMayLeadOutOfItsFolder)
{
    for (const char* name : {"", ".", "..", "a/b", "a\\b", "/a", "a\n", "a\x7F"})
        EXPECT_NE(whyUnsafe(name), "") << name;
    for (const char* name : {"a", "...", ".a", "a b", "-a", "\xC3\xA4"})
        EXPECT_EQ(whyUnsafe(name), "") << name;
}

TEST(VympackFileNames, TheListAsAWholeIsChecked)
{
    const auto found = [](const std::vector<EmbeddedFile>& files) {
        Defects defects;
        checkFiles(files, {}, defects);
        return namesOf(defects);
    };
    EXPECT_THAT(found({{"VYMINFO.txt", 1, {}}}), ElementsAre("error single-entry"));
    EXPECT_THAT(found({{"vyminfo.TXT", 1, {}}, {"a", 1, {}}}), ElementsAre("error no-description"));
    EXPECT_THAT(found({{"VYMINFO.txt", 1, {}}, {"a\xFF", 1, {}}}),
                ElementsAre("warning unprintable-text"));
    EXPECT_THAT(found({{"VYMINFO.txt", 1, {}}, {"a", 1, {}}, {"a", 1, {}}}),
                Contains("error duplicate-name"));
}
