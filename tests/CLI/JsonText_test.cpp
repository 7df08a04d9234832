// SPDX-License-Identifier: MIT
#include "CLI/JsonText.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

TEST(JsonText, WritesEachKindOfValue)
{
    EXPECT_EQ(Json().text(), "null");
    EXPECT_EQ(Json(true).text(), "true");
    EXPECT_EQ(Json(-11).text(), "-11");
    EXPECT_EQ(Json(4294967295U).text(), "4294967295");
    EXPECT_EQ(Json("text").text(), "\"text\"");
    EXPECT_EQ(Json(std::vector<std::string>{"a", "b"}).text(), R"(["a","b"])");
    EXPECT_EQ(Json::array({}).text(), "[]");
    EXPECT_EQ(Json::array({Json(1), Json("x")}).text(), R"([1,"x"])");
    const Json object = {{"number", 1}, {"inner", Json{{"ok", false}}}, {"empty", Json()}};
    EXPECT_EQ(object.text(), R"({"number":1,"inner":{"ok":false},"empty":null})");
}

TEST(JsonText, WritesNumbersWithAPointInTheirShortestForm)
{
    EXPECT_EQ(Json(0.0).text(), "0.0");
    EXPECT_EQ(Json(3.1).text(), "3.1");
    EXPECT_EQ(Json(100000.0).text(), "100000.0");
    EXPECT_EQ(Json(-0.5).text(), "-0.5");
}

TEST(JsonText, ReadsBackAsTheTextThatItWas)
{
    for (const std::string& text : {std::string("quotes \" and \\"), std::string("\b\f\n\r\t"),
                                    std::string("\x01\x1f\x7f"), std::string("\0in the middle", 14),
                                    std::string("\u00e4\u6f22\U0001F5A8"), std::string()}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(nlohmann::json::parse(Json(text).text()).get<std::string>(), text);
    }
}

TEST(JsonText, IsValidWhateverTheBytesAre)
{
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const auto& text : {all, std::string("\xE6\xBC"), std::string("\xC0\x80 \xFF")})
        EXPECT_FALSE(nlohmann::json::parse(Json(text).text(), nullptr, false).is_discarded());
}
