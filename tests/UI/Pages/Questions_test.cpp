// SPDX-License-Identifier: MIT
#include "UI/Pages/Questions.h"

#include <gtest/gtest.h>

TEST(Questions, LeaveTheReturnKeyToNo)
{
    for (const auto& question : {startQuestion(false), startQuestion(true), cancelQuestion()}) {
        EXPECT_EQ(question.defaultButton, "YES");
        EXPECT_EQ(question.alternateButton, "NO");
        EXPECT_EQ(question.returnKey, AlertReturn::pressesAlternate);
        EXPECT_EQ(question.style, AlertStyle::critical);
    }
    EXPECT_EQ(startQuestion(false).title, "Confirmation_Normal_Title");
    EXPECT_EQ(startQuestion(true).title, "Confirmation_VerDown_Title");
    EXPECT_EQ(cancelQuestion().message, "Cancel_Message");
}

TEST(Questions, MentionAnEarlierUpdateThatWasCutOff)
{
    EXPECT_EQ(startQuestion(false).remarks, "");
    for (const bool allowsOlder : {false, true}) {
        const auto question = startQuestion(allowsOlder, "2026-11-21 04:35:09 +0100");
        EXPECT_EQ(question.remarks, "Confirmation_CutOff");
        EXPECT_EQ(question.alternateButton, "NO");
    }
}

TEST(Questions, HaveOneButtonWhereThereIsNothingToDecide)
{
    EXPECT_EQ(addressMessage().defaultButton, "OK");
    EXPECT_EQ(addressMessage().alternateButton, "");
    EXPECT_EQ(unsupportedSystemMessage("").details, "");
    EXPECT_EQ(unsupportedSystemMessage("no package").details, "VYM_UnSupportOS_Package");
}
