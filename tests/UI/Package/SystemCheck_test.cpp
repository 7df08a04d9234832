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
        {"bounds that nobody set", 0x1058, 0, 0, false},
        {"a system without a version, bounds that nobody set", 0, 0, 0, true},
        {"compared with its sign", -1, -1, 0, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(isSystemSupported(row.system, row.max, row.min), row.isSupported) << row.why;
}
