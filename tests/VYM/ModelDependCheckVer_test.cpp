// SPDX-License-Identifier: MIT
#include "VYM/ModelDependCheckVer.h"

#include <gtest/gtest.h>
#include <string>

namespace {

struct Row {
    const char* why;
    const char* update;
    const char* target;
    yesno_type rule;
    bool send;
    int code;
};

void check(const Row& row, const char* compatible = "")
{
    SCOPED_TRACE(row.why);
    const auto decision = decideVersion(row.update, compatible, row.target, row.rule);
    EXPECT_EQ(decision.send, row.send);
    EXPECT_EQ(decision.code, row.code);
}

TEST(ModelDependCheckVer, DecidesVersionsWithoutAPointByTheirDigits)
{
    const Row table[] = {
        {"newer under newer-only", "AB010300", "AB010203", yesno_no, true, 1},
        {"the same under newer-only", "AB010203", "AB010203", yesno_no, false, -11},
        {"older under newer-only", "AB010203", "AB010300", yesno_no, false, -11},
        {"newer under newer-or-same", "AB010300", "AB010203", yesno_both, true, 1},
        {"the same under newer-or-same", "AB010203", "AB010203", yesno_both, true, 1},
        {"older under newer-or-same", "AB010203", "AB010300", yesno_both, false, -11},
        {"older under any", "AB010203", "AB010300", yesno_yes, true, 1},
        {"no rule at all", "AB010300", "AB010203", yesno_none, false, 1},
        {"other characters 0-1", "AC010300", "AB010203", yesno_yes, false, 1},
        {"other characters 2-3", "AB020300", "AB010203", yesno_yes, false, 1},
        {"a letter in the update's digits", "AB01030A", "AB010203", yesno_yes, false, -5},
        {"a letter in the target's digits", "AB010300", "AB01020x", yesno_yes, false, -5},
        {"a point in the target's digits", "AB010300", "AB01.203", yesno_yes, false, -5},
        {"nothing but the series", "0110", "0110", yesno_both, true, 1},
        {"digits of different length", "AB0100010", "AB01009", yesno_no, true, 1},
        {"digits beyond any integer", "AB0199999999999999999999", "AB0199999999999999999998",
         yesno_no, true, 1},
    };
    for (const auto& row : table)
        check(row);
}

TEST(ModelDependCheckVer, RefusesAPrinterBelowTheCompatibleVersion)
{
    const Row below = {"below", "AB010300", "AB010203", yesno_no, false, -12};
    check(below, "AB010204");
    const Row at = {"at", "AB010300", "AB010203", yesno_no, true, 1};
    check(at, "AB010203");
    const Row any = {"below, under any", "AB010300", "AB010203", yesno_yes, false, -12};
    check(any, "AB010204");
    const Row both = {"neither newer nor compatible", "AB010203", "AB010203", yesno_no, false, -12};
    check(both, "AB010204");
    const Row shorter = {
        "a compatible text with no digits", "AB010300", "AB010203", yesno_no, true, 1};
    check(shorter, "AB");
}

TEST(ModelDependCheckVer, DecidesMajorAndMinorAroundThePoint)
{
    const Row table[] = {
        {"a higher major under newer-only", "02.00", "01.99", yesno_no, true, 1},
        {"a higher major under any", "02.00", "01.99", yesno_yes, true, 1},
        {"a higher major under newer-or-same", "02.00", "01.99", yesno_both, true, 1},
        {"a higher minor under newer-only", "01.11", "01.10", yesno_no, true, 1},
        {"the same under newer-only", "01.10", "01.10", yesno_no, false, -11},
        {"a lower minor under newer-only", "01.09", "01.10", yesno_no, false, -11},
        {"a lower major, higher minor", "01.99", "02.00", yesno_no, false, -11},
        {"the same under newer-or-same", "01.10", "01.10", yesno_both, true, 1},
        {"a lower minor under newer-or-same", "01.09", "01.10", yesno_both, false, -11},
        {"a lower major under newer-or-same", "01.99", "02.00", yesno_both, false, -11},
        {"any does not go without a higher major", "01.11", "01.10", yesno_yes, false, 1},
        {"any does not go back either", "01.09", "02.10", yesno_yes, false, 1},
        {"a letter in the update's major", "A1.00", "01.00", yesno_no, false, -5},
        {"a letter in the update's minor", "01.0A", "01.00", yesno_no, false, -5},
        {"a letter in the target", "01.00", "01.x0", yesno_no, false, -5},
        {"what stands after the fields is not looked at", "01.11z", "01.10y", yesno_no, true, 1},
    };
    for (const auto& row : table)
        check(row);
}

TEST(ModelDependCheckVer, DecidesSeriesWithMajorAndMinor)
{
    const Row table[] = {
        {"a higher minor", "AB0101.11", "AB0101.10", yesno_no, true, 1},
        {"a higher major", "AB0102.00", "AB0101.99", yesno_yes, true, 1},
        {"the same", "AB0101.10", "AB0101.10", yesno_no, false, -11},
        {"the same under newer-or-same", "AB0101.10", "AB0101.10", yesno_both, true, 1},
        {"another series", "AC0102.00", "AB0101.00", yesno_no, false, 1},
        {"another series in 2-3", "AB0202.00", "AB0101.00", yesno_no, false, 1},
        {"no digits", "AB01xx.00", "AB0101.00", yesno_no, false, -5},
    };
    for (const auto& row : table)
        check(row);
}

TEST(ModelDependCheckVer, TakesTheFieldsAroundTheThirdPointOfTheUpdate)
{
    const Row table[] = {
        {"a higher minor", "ABCDEFGH.IJ.01.11", "ABCDEFGH.IJ.01.10", yesno_no, true, 1},
        {"a higher major", "ABCDEFGH.IJ.02.00", "ABCDEFGH.IJ.01.99", yesno_yes, true, 1},
        {"the same", "ABCDEFGH.IJ.01.10", "ABCDEFGH.IJ.01.10", yesno_no, false, -11},
        {"no leading characters are compared", "ABCDEFGH.IJ.01.11", "zzzzzzzz.zz.01.10", yesno_no,
         true, 1},
        {"the target's own points do not matter", "ABCDEFGH.IJ.01.11", "ABCDEFGHxIJx01x10",
         yesno_no, true, 1},
        {"only two points", "ABCDEFGH.IJ01.11", "ABCDEFGH.IJ01.10", yesno_no, false, -5},
        {"only one point", "ABCDEFGH.IJ", "ABCDEFGH.IJ", yesno_no, false, -5},
        {"points side by side", "ABCDEFGH...11", "ABCDEFGH...10", yesno_no, false, -5},
        {"no digits in front of the third point", "ABCDEFGH.IJ.xx.11", "ABCDEFGH.IJ.01.10",
         yesno_no, false, -5},
    };
    for (const auto& row : table)
        check(row);
}

TEST(ModelDependCheckVer, DecidesTheLongFormByEightDigits)
{
    const Row table[] = {
        {"newer", "AB0120260102.x", "AB0120260101.x", yesno_no, true, 1},
        {"the same", "AB0120260101.x", "AB0120260101.x", yesno_no, false, -11},
        {"the same under newer-or-same", "AB0120260101.x", "AB0120260101.x", yesno_both, true, 1},
        {"older under newer-or-same", "AB0120260101.x", "AB0120260102.x", yesno_both, false, -11},
        {"any", "AB0120260102.x", "AB0120260101.x", yesno_yes, false, 1},
        {"another series", "AC0120260102.x", "AB0120260101.x", yesno_no, false, 1},
        {"a letter", "AB012026010A.x", "AB0120260101.x", yesno_no, false, -5},
    };
    for (const auto& row : table)
        check(row);
}

TEST(ModelDependCheckVer, KnowsNoFormWithThePointAnywhereElse)
{
    for (const std::size_t index : {0U, 1U, 3U, 4U, 5U, 7U, 9U, 10U, 11U, 13U, 20U}) {
        const std::string version = std::string(index, '1') + ".11.11.11";
        EXPECT_EQ(decideVersion(version, "", version, yesno_both).code, -5) << index;
    }
}

TEST(ModelDependCheckVer, ReadsNothingBeyondAVersionThatIsShorterThanItsForm)
{
    const char* const whole[] = {"AB010203", "01.10", "AB0101.10", "ABCDEFGH.IJ.01.10",
                                 "AB0120260101.x"};
    for (const std::string text : whole) {
        for (std::size_t length = 0; length < text.size(); ++length) {
            const auto cut = text.substr(0, length);
            SCOPED_TRACE(text + " / " + cut);
            // Reads no byte beyond the rest of a version, and overlooks no older printer.
            decideVersion(text, text, cut, yesno_no);
            decideVersion(cut, text, text, yesno_no);
            decideVersion(cut, cut, cut, yesno_no);
        }
    }
    EXPECT_EQ(decideVersion("01.", "", "01.10", yesno_both).code, -5);
    EXPECT_EQ(decideVersion("01.10", "", "01.1", yesno_both).code, -5);
}

TEST(ModelDependCheckVer, CallsAnEmptyOrShortVersionAnotherSeriesWhereTheSeriesIsCompared)
{
    for (const char* update : {"AB010203", "AB0101.10", "AB0120260101.x"}) {
        for (const char* target : {"", "A", "AB", "AB0"}) {
            SCOPED_TRACE(std::string(update) + " / " + target);
            const auto decision = decideVersion(update, "", target, yesno_yes);
            EXPECT_FALSE(decision.send);
            EXPECT_EQ(decision.code, 1) << "passed over; it does not end the run";
            EXPECT_EQ(decision.reason, VersionReason::otherSeries);
        }
    }
    EXPECT_EQ(decideVersion("AB", "", "AB", yesno_yes).code, -5) << "the package's own mistake";
    for (const char* update : {"01.10", "ABCDEFGH.IJ.01.10"}) // no series there
        EXPECT_EQ(decideVersion(update, "", "", yesno_yes).code, -5);
}

TEST(ModelDependCheckVer, GivesTheReasonInAWord)
{
    const auto reason = [](const char* update, const char* compatible, const char* target) {
        return decideVersion(update, compatible, target, yesno_no).reason;
    };
    EXPECT_EQ(reason("02.00", "", "01.00"), VersionReason::applies);
    EXPECT_EQ(reason("01.00", "", "01.00"), VersionReason::notNewer);
    EXPECT_EQ(reason("AC0103", "", "AB0101"), VersionReason::otherSeries);
    EXPECT_EQ(reason("AB013", "AB012", "AB011"), VersionReason::tooOld);
    EXPECT_EQ(reason("1.0", "", "1.0"), VersionReason::unreadableVersion);
    const auto everyVersion = decideVersion("01.00", "", "01.10", yesno_yes);
    EXPECT_EQ(everyVersion.reason, VersionReason::noRule);
    EXPECT_EQ(everyVersion.code, 1);
}

} // namespace
