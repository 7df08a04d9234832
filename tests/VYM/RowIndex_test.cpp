// SPDX-License-Identifier: MIT
#include "VYM/DescriptionText.h"
#include "VYM/RowIndex.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

constexpr std::string_view kText = "# a comment\r\nversion A=1\r\nPORTNO 1\r\nPORT USB\r\n"
                                   "VERSION B=2\r\n\r\nVERSION C=3\r\nOTHER 1\r\nOTHER 2";

} // namespace

TEST(RowIndex, FindsRowsInAnyOrderOfQueries)
{
    RowIndex index;
    EXPECT_EQ(index.find(kText, "VERSION", 2), "VERSION C=3");
    EXPECT_EQ(index.find(kText, "VERSION", 0), "version A=1");
    EXPECT_EQ(index.find(kText, "Version", 1), "VERSION B=2");
    EXPECT_EQ(index.find(kText, "VERSION", 3), "");
    EXPECT_EQ(index.find(kText, "VERSION", 2), "VERSION C=3");
    EXPECT_EQ(index.find(kText, "PORT", 0), "PORTNO 1");
    EXPECT_EQ(index.find(kText, "PORT", 1), "PORT USB");
    EXPECT_EQ(index.find(kText, "TGMNAME", 0), "");
    EXPECT_EQ(index.find(kText, "OTHER", 1), "OTHER 2") << "a key that it does not know";
    EXPECT_EQ(index.find(kText, "", 0), "# a comment") << "every row begins with nothing";
}

TEST(RowIndex, ForgetsATextThatChanges)
{
    RowIndex index;
    EXPECT_EQ(index.find("PORT 1", "PORT", 0), "PORT 1");
    index.forget();
    EXPECT_EQ(index.find("x\r\nPORT 2", "PORT", 0), "PORT 2");
    index.forget();
    EXPECT_EQ(index.find("", "PORT", 0), "");
}

TEST(RowIndex, AgreesWithAWalkForEachQuery)
{
    std::mt19937 random(7); // the same texts in every run
    const auto pick = [&random](std::size_t count) { return random() % count; };
    for (int round = 0; round < 200; ++round) {
        std::string text;
        for (auto rows = pick(30); rows > 0; --rows) {
            const auto key = RowIndex::kKeys[pick(RowIndex::kKeys.size())];
            text += key.substr(0, 1 + pick(key.size() + 3));
            text += pick(4) == 0 ? " 1\n" : " 1\r\n";
        }
        RowIndex index;
        for (int question = 0; question < 50; ++question) {
            const auto key = RowIndex::kKeys[pick(RowIndex::kKeys.size())];
            const auto which = static_cast<unsigned>(pick(6));
            ASSERT_EQ(index.find(text, key, which), description::findRow(text, key, which))
                << text << key << which;
        }
    }
}
