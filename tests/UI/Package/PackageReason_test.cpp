// SPDX-License-Identifier: MIT
#include "UI/Package/PackageReason.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(PackageReason, HasWordsForEveryFault)
{
    for (int i = 1; i <= static_cast<int>(PackageFault::stopped); ++i) {
        SCOPED_TRACE(i);
        const auto words = englishWords({static_cast<PackageFault>(i), "/a/place"});
        EXPECT_THAT(words, testing::EndsWith("."));
        EXPECT_THAT(words, Not(HasSubstr("..")));
    }
    EXPECT_EQ(englishWords({}), "");
}

TEST(PackageReason, NamesTheLimitThatThePackageExceeds)
{
    EXPECT_THAT(
        englishWords({PackageFault::manyFirmware, "/p/VYMBINDDATA", 1000}),
        AllOf(HasSubstr("more than 1000 firmware"), HasSubstr("\"vympack check /p/VYMBINDDATA\"")));
    EXPECT_THAT(englishWords({PackageFault::largeDescription, "/p", 16}),
                HasSubstr("larger than 16 MiB"));
}

TEST(PackageReason, NamesTheTrustedKeysAndThoseThatCannotBeRead)
{
    const PackageReason reason{PackageFault::notSigned,
                               "/p/VYMBINDDATA.minisig",
                               0,
                               {},
                               {{"maker.pub", true}, {"torn.pub", false}}};
    EXPECT_THAT(englishWords(reason),
                AllOf(HasSubstr("there is no '/p/VYMBINDDATA.minisig'."),
                      HasSubstr(": maker.pub, torn.pub (which is no key that can be read).")));
}
