// SPDX-License-Identifier: MIT
#include "UI/Package/SystemCheck.h"

#include <gtest/gtest.h>

TEST(SystemCheck, HoldsTheSystemAgainstBothBounds)
{
    const struct {
        const char* why;
        std::int32_t system, max, min;
        bool isSupported;
    } rows[] = {
        {"inside", 0x1058, 0x1100, 0x1000, true},
        {"at the minimum", 0x1058, 0x1100, 0x1058, true},
        {"at the maximum", 0x1058, 0x1058, 0x1000, true},
        {"exactly this one", 0x1058, 0x1058, 0x1058, true},
        {"below the minimum", 0x1057, 0x1100, 0x1058, false},
        {"above the maximum", 0x1101, 0x1100, 0x1058, false},
        {"no maximum", 0x7FFF0000, -1, 0, true},
        {"no maximum, but a minimum", 0x1057, -1, 0x1058, false},
        {"any negative maximum is none", 0x1058, -5, 0, true},
        {"no bounds", 0x1058, 0, 0, false},
        {"no version, no bounds", 0, 0, 0, true},
        {"compared with its sign", -1, -1, 0, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(isSystemSupported(row.system, row.max, row.min), row.isSupported) << row.why;
}

TEST(SystemCheck, LetsASystemPassWhoseNumberIsBelowTen)
{
    const struct {
        const char* why;
        std::int32_t system;
        SystemBounds bounds;
        SystemVerdict verdict;
    } rows[] = {
        {"10 or more, below the lowest", 0x1000, {-1, 0x2204}, SystemVerdict::unsupported},
        {"10 or more, above the highest", 0x1058, {0x1057, 0}, SystemVerdict::unsupported},
        {"10 or more, no bounds set", 0x1200, {0, 0}, SystemVerdict::unsupported},
        {"9.4", 0x0940, {-1, 0x2204}, SystemVerdict::notCompared},
        {"5", 0x0500, {0x2404, 0x2204}, SystemVerdict::notCompared},
        {"3.19, no bounds set", 0x0390, {0, 0}, SystemVerdict::notCompared},
        {"no number", 0, {-1, 0x1040}, SystemVerdict::notCompared},
        {"no number, but every system is meant", 0, {-1, 0}, SystemVerdict::supported},
        {"9.4 inside its bounds", 0x0940, {0x0950, 0x0900}, SystemVerdict::supported},
        {"12 inside its bounds", 0x1200, {-1, 0x1040}, SystemVerdict::supported},
    };
    for (const auto& row : rows)
        EXPECT_EQ(judgeSystem(row.system, row.bounds), row.verdict) << row.why;
}

TEST(SystemCheck, RemarksOnWhateverIsNotInsideTheBounds)
{
    EXPECT_EQ(systemRemark(0x1200, {-1, 0x1040}), "");
    EXPECT_EQ(systemRemark(0x1200, {0x2410, 0x2204}),
              "The package is for systems with a version from 22.0.4 to 24.1.0. This system has "
              "version 12.0.0.");
    EXPECT_EQ(systemRemark(0x1200, {-5, 0x2204}),
              "The package is for systems with a version from 22.0.4 on. This system has version "
              "12.0.0.");
    EXPECT_EQ(systemRemark(0x1200, {0, 0}),
              "The package is for systems with a version that it does not name (it has no "
              "PLATFORMVERSION row). This system has version 12.0.0.");
    EXPECT_EQ(systemRemark(0x0940, {-1, 0x2204}),
              "This system has version 9.4.0. Only versions from 10 on are compared with the "
              "package's bounds, so it passes.");
    EXPECT_EQ(systemRemark(0, {-1, 0x2204}),
              "This system has no version number. Only versions from 10 on are compared with the "
              "package's bounds, so it passes.");
}
