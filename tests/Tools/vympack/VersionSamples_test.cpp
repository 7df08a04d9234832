// SPDX-License-Identifier: MIT
#include "Tools/vympack/VersionSamples.h"

#include <gtest/gtest.h>

using namespace vympack;

namespace {

std::string sample(std::string_view update, std::string_view compatible, const std::string& what)
{
    for (const auto& each : versionSamples(update, compatible)) {
        if (each.what == what)
            return each.version;
    }
    return "none of that name";
}

} // namespace

TEST(VympackVersionSamples, AreNeighboursInEveryForm)
{
    const struct {
        const char *update, *older, *newer, *lower, *higher, *series;
    } rows[] = {
        {"AB010200", "AB010199", "AB010201", "", "", "ZB010200"},
        {"ZB010100", "ZB010099", "ZB010101", "", "", "YB010100"},
        {"01.20", "01.19", "01.21", "00.20", "02.20", ""},
        {"01.00", "", "01.01", "00.00", "02.00", ""},
        {"99.99", "99.98", "", "98.99", "", ""},
        {"AB0101.20", "AB0101.19", "AB0101.21", "AB0100.20", "AB0102.20", "ZB0101.20"},
        {"ABCDEFGH.a.01.20", "ABCDEFGH.a.01.19", "ABCDEFGH.a.01.21", "ABCDEFGH.a.00.20",
         "ABCDEFGH.a.02.20", ""},
        {"ABCD20240102.", "ABCD20240101.", "ABCD20240103.", "", "", "ZBCD20240102."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.update);
        EXPECT_EQ(sample(row.update, "", "older"), row.older);
        EXPECT_EQ(sample(row.update, "", "the same"), row.update);
        EXPECT_EQ(sample(row.update, "", "newer"), row.newer);
        EXPECT_EQ(sample(row.update, "", "lower major number"), row.lower);
        EXPECT_EQ(sample(row.update, "", "higher major number"), row.higher);
        EXPECT_EQ(sample(row.update, "", "another series"), row.series);
        EXPECT_EQ(versionSamples(row.update, "").size(), kSamples);
    }
}

TEST(VympackVersionSamples, CompatibleCountsInTheFormWithoutAPointOnly)
{
    EXPECT_EQ(sample("AB010200", "XY010100", "below COMPATIBLE"), "AB010099");
    EXPECT_EQ(sample("AB010200", "AB000000", "below COMPATIBLE"), "");
    EXPECT_EQ(sample("01.20", "AB010100", "below COMPATIBLE"), "");
}

TEST(VympackVersionSamples, AVersionOfNoFormHasNoNeighbours)
{
    for (const char* version : {"1.2", "", "AB01X200", "0110"})
        EXPECT_EQ(versionSamples(version, "").size(), 2U) << version;
    EXPECT_STREQ(formText("1.2"), "a form that cannot be compared");
    EXPECT_STREQ(formText("01.20"), "NN.NN");
}
