// SPDX-License-Identifier: MIT
#include "Tools/vympack/Defect.h"
#include "tests/Tools/vympack/description_rows.h"

using namespace vympack;
using namespace vympack_test;

TEST(VympackDefect, ThousandsOfDefectsAreCountedButNotKept)
{
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += "VERSION\r\nNOKEY\r\n";
    const auto defects = check(text);
    EXPECT_GE(defects.errors(), 40'000U);
    EXPECT_LE(defects.kept().size(), 20 * Defects::kKeptPerKind);
}

TEST(VympackDefect, EachKindIsKeptForItself)
{
    constexpr DefectKind kOne{"one", Severity::error, "why"};
    constexpr DefectKind kOther{"other", Severity::warning, "why"};
    Defects defects;
    for (std::size_t i = 0; i <= Defects::kKeptPerKind; ++i)
        defects.add(kOne, {}, "message", "instead");
    defects.add(kOther, {}, "message");
    EXPECT_EQ(defects.kept().size(), Defects::kKeptPerKind + 1);
    EXPECT_EQ(defects.errors(), Defects::kKeptPerKind + 1);
    EXPECT_EQ(defects.warnings(), 1U);
    EXPECT_EQ(defects.kept().front().instead, "instead");
    EXPECT_EQ(defects.kept().back().instead, "");
}
