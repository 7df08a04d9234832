// SPDX-License-Identifier: MIT
#include "CLI/LastLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using testing::HasSubstr;

namespace {

LastFacts facts(bool json)
{
    LastFacts last;
    last.json = json;
    last.command = "update";
    last.exitCode = 19;
    last.name = "system-error";
    last.resultCode = -9;
    last.seconds = 12.34;
    return last;
}

std::string lineOf(const LastFacts& last)
{
    LastText room;
    return std::string(lastLine(last, room));
}

} // namespace

TEST(LastLine, IsAWholeResultInJson)
{
    const auto line = lineOf(facts(true));
    EXPECT_EQ(line.back(), '\n');
    const auto json = nlohmann::json::parse(line);
    EXPECT_EQ(json["type"], "result");
    EXPECT_EQ(json["command"], "update");
    EXPECT_EQ(json["exit_code"], 19);
    EXPECT_EQ(json["result_code"], -9);
    EXPECT_EQ(json["name"], "system-error");
    EXPECT_EQ(json["next"], "retry");
    EXPECT_EQ(json["seconds"], 12.3);
    EXPECT_EQ(json["firmware_bytes_sent"], false);
    EXPECT_EQ(json.size(), 19U); // the keys of every result
}

TEST(LastLine, ClaimsNothingOfBytesThatItDoesNotKnow)
{
    auto last = facts(true);
    last.bytesWentOut = std::nullopt;
    last.resultCode = std::nullopt;
    const auto json = nlohmann::json::parse(lineOf(last));
    EXPECT_TRUE(json["firmware_bytes_sent"].is_null());
    EXPECT_TRUE(json["result_code"].is_null());
    EXPECT_EQ(json["next"], "check-printer");
}

TEST(LastLine, IsASentenceForPeople)
{
    EXPECT_THAT(lineOf(facts(false)), HasSubstr("system-error: This computer ran out of memory"));
    EXPECT_THAT(lineOf(facts(false)), HasSubstr("No firmware was sent.\n"));
    auto last = facts(false);
    last.bytesWentOut = true;
    EXPECT_THAT(lineOf(last), HasSubstr("do not switch the printer off"));
}

TEST(LastLine, FindsTheWishForJsonInTheArguments)
{
    const char* const with[] = {"vymkit-cli", "update", "--json"};
    EXPECT_TRUE(wantsJson(3, with));
    EXPECT_FALSE(wantsJson(2, with));
}
