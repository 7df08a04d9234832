// SPDX-License-Identifier: MIT
#include "CLI/FirmwareChoice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

PackageFacts packageOf(const std::vector<std::pair<std::string, std::string>>& names)
{
    PackageFacts package{};
    for (const auto& [name, displayName] : names) {
        PackagedFirmware firmware{};
        firmware.number = static_cast<std::uint32_t>(package.firmware.size()) + 1;
        firmware.name = name;
        firmware.displayName = displayName;
        package.firmware.push_back(firmware);
    }
    return package;
}

FirmwareChoice choose(std::vector<std::string> names)
{
    Options options;
    options.only = std::move(names);
    return chooseFirmware(
        packageOf({{"MAIN", "Main controller"}, {"ENGINE", "Engine"}, {"MAIN", "Boot"}}), options);
}

} // namespace

TEST(FirmwareChoice, LeavesEveryFirmwareInWithoutAName)
{
    const auto choice = choose({});
    EXPECT_EQ(choice.problem, "");
    EXPECT_TRUE(choice.entries.wants(1) && choice.entries.wants(3));
    EXPECT_FALSE(choice.entries.skipSame);
}

TEST(FirmwareChoice, FindsEachFirmwareByEitherName)
{
    EXPECT_THAT(choose({"engine"}).entries.only, ElementsAre(2));
    EXPECT_THAT(choose({"main"}).entries.only, ElementsAre(1, 3));
    EXPECT_THAT(choose({"Boot", "ENGINE"}).entries.only, ElementsAre(3, 2));
    EXPECT_FALSE(choose({"Boot"}).entries.wants(1));
    EXPECT_EQ(choose({"Boot", "ENGINE"}).problem, "");
}

TEST(FirmwareChoice, SaysWhichNameThePackageLacksAndWhichItHas)
{
    const auto choice = choose({"MAIN", "FO\x1bNT"});
    EXPECT_THAT(choice.problem, HasSubstr("'FO\\x1bNT'"));
    EXPECT_THAT(choice.problem, HasSubstr("The package has MAIN, ENGINE, MAIN."));
    EXPECT_NE(choose({""}).problem, "");
}

TEST(FirmwareChoice, TakesTheWishToSkipWhatIsInstalled)
{
    Options options;
    options.skipSame = true;
    const auto choice = chooseFirmware(packageOf({{"MAIN", ""}}), options);
    EXPECT_TRUE(choice.entries.skipSame);
    EXPECT_THAT(choice.entries.only, IsEmpty());
}
