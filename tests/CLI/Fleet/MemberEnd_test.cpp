// SPDX-License-Identifier: MIT
#include "CLI/Fleet/MemberEnd.h"

#include <gtest/gtest.h>

namespace {

std::string resultLine(const char* command, int exitCode)
{
    return std::string(R"({"type":"result","schema_version":1,"command":")") + command
        + R"(","exit_code":)" + std::to_string(exitCode)
        + R"(,"next":"retry","message":"Some words.","firmware_bytes_sent":true})";
}

} // namespace

TEST(MemberEnd, CountsAnExitCodeInItsClass)
{
    const struct {
        const char* command;
        int exitCode;
        MemberClass memberClass;
        bool well;
    } rows[] = {
        {"update", 0, MemberClass::updated, true},
        {"check", 0, MemberClass::updateAvailable, true},
        {"update", 2, MemberClass::nothingToUpdate, true},
        {"check", 2, MemberClass::nothingToUpdate, true},
        {"update", 130, MemberClass::stopped, false},
        {"update", 3, MemberClass::failed, false},
        {"check", 22, MemberClass::failed, false},
        {"update", 68, MemberClass::failed, false},
    };
    for (const auto& row : rows) {
        const auto end = memberEnd(resultLine(row.command, row.exitCode));
        ASSERT_TRUE(end);
        EXPECT_EQ(end->memberClass, row.memberClass) << row.exitCode;
        EXPECT_EQ(isWell(end->memberClass), row.well) << row.exitCode;
    }
}

TEST(MemberEnd, KeepsWhatALaterCallNeeds)
{
    const auto end = memberEnd(withPrinter(resultLine("update", 16), "Hall \"2\""));
    ASSERT_TRUE(end);
    EXPECT_EQ(end->printer, "Hall \"2\"");
    EXPECT_EQ(end->command, "update");
    EXPECT_EQ(end->next, "retry");
    EXPECT_EQ(end->message, "Some words.");
    EXPECT_EQ(end->bytesWentOut, true);
    EXPECT_EQ(memberEnd(resultLine("update", 0))->printer, "");
}

TEST(MemberEnd, DoesNotKnowOfBytesWhatItsLineDoesNotSay)
{
    for (const char* unknown : {R"({"type":"result","exit_code":20,"firmware_bytes_sent":null})",
                                R"({"type":"result","exit_code":20})"})
        EXPECT_FALSE(memberEnd(unknown)->bytesWentOut.has_value()) << unknown;
    EXPECT_EQ(
        memberEnd(R"({"type":"result","exit_code":16,"firmware_bytes_sent":false})")->bytesWentOut,
        false);
}

TEST(MemberEnd, TakesNoDamagedLine)
{
    for (const char* bad :
         {"", "{", "null", "[1]", R"({"type":"status"})", R"({"type":"result"})",
          R"({"type":"result","exit_code":"0"})", R"({"type":"result","exit_code":1.5})"})
        EXPECT_FALSE(memberEnd(bad)) << bad;
}

TEST(MemberEnd, PutsThePrinterBehindTheType)
{
    EXPECT_EQ(withPrinter(R"({"type":"status","seconds":1})", "a"),
              R"({"type":"status","printer":"a","seconds":1})");
    EXPECT_EQ(withPrinter("no line of ours", "a"), "no line of ours");
    EXPECT_TRUE(isResultLine(withPrinter(resultLine("check", 0), "\x80")));
}
