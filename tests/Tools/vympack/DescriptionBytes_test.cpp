// SPDX-License-Identifier: MIT
#include "Tools/vympack/DescriptionBytes.h"
#include "tests/Tools/vympack/description_rows.h"

using namespace vympack;
using namespace vympack_test;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(VympackDescriptionBytes, LineFeedsThroughoutAreOneDefectAndTheRestIsStillChecked)
{
    auto text = replaced(goodDescription(), "PORTNO 48350", "PORTNO 0");
    std::erase(text, '\r');
    const auto defects = check(text);
    EXPECT_THAT(namesOf(defects), ElementsAre("error bad-number", "error bare-line-feed"));
    EXPECT_THAT(defects.kept().front().message, HasSubstr("12 times"));
    EXPECT_EQ(defects.kept().back().place.row, 5U);
}

TEST(VympackDescriptionBytes, TheTextAsItWasMeantHasCrLfAtEveryRowsEnd)
{
    Defects defects;
    EXPECT_EQ(checkBytes("\xEF\xBB\xBF"
                         "a\nb\rc\r\nd",
                         {}, defects),
              "a\r\nb\r\nc\r\nd");
    EXPECT_EQ(defects.errors(), 3U);
    EXPECT_FALSE(checkBytes("\xFF\xFE", {}, defects).has_value());
}
