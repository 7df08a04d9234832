// SPDX-License-Identifier: MIT
#include "UI/Support/UdevRule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(UdevRule, IsOneLineThatLetsPeopleAtThisComputerOpenThePrinters)
{
    const auto line = udevRuleLine();
    EXPECT_THAT(line, StartsWith("SUBSYSTEM==\"usb\""));
    EXPECT_THAT(line, HasSubstr("TAG+=\"uaccess\""));
    EXPECT_EQ(line.find('\n'), std::string::npos);
}

TEST(UdevRule, StandsBeforeTheRulesThatTurnItsTagIntoAPermission)
{
    const auto file = udevRuleFile();
    EXPECT_THAT(file, StartsWith("/etc/udev/rules.d/"));
    EXPECT_LT(file.substr(file.rfind('/') + 1), "73-seat-late.rules");
    EXPECT_THAT(udevAdvice(), HasSubstr(file));
    EXPECT_THAT(udevAdvice(), EndsWith("."));
}
