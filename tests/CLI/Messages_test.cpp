// SPDX-License-Identifier: MIT
#include "CLI/Messages.h"

#include <gtest/gtest.h>

namespace {

FirmwareOutcome reached()
{
    FirmwareOutcome outcome;
    outcome.reached = true;
    outcome.bytesTotal = 10;
    return outcome;
}

} // namespace

TEST(Messages, FillInTheFactsOnceAndLeaveTheirBracesAlone)
{
    MessageFacts facts;
    facts.address = "{model}";
    facts.place = "here";
    EXPECT_EQ(englishText("Error_DeviceErrorMes", facts),
              "The printer at {model} reported an error here.");
    EXPECT_EQ(englishText("a key without a text", facts), "a key without a text");
}

TEST(Messages, SayWhatBecameOfAFirmware)
{
    auto outcome = reached();
    EXPECT_EQ(updatedText(FirmwareOutcome()), "not reached");
    EXPECT_EQ(updatedText(outcome), "not sent");
    outcome.decision = Decision::skip;
    outcome.reason = VersionReason::noRule;
    EXPECT_EQ(updatedText(outcome), "skipped: the package's version rule never sends this version");
    outcome = reached();
    outcome.bytesWentOut = true;
    outcome.resultCode = -6;
    EXPECT_EQ(updatedText(outcome), "broken off at its first bytes");
    outcome.bytesSent = 5;
    EXPECT_EQ(updatedText(outcome), "broken off after 5 of 10 bytes");
    outcome.resultCode = 1;
    EXPECT_EQ(updatedText(outcome), "sent whole, not confirmed by the printer");
    outcome.confirmed = true;
    EXPECT_EQ(updatedText(outcome), "sent, and confirmed by the printer");
}

TEST(Messages, SayWhatACheckFound)
{
    auto outcome = reached();
    EXPECT_EQ(checkedText(outcome), "not decided");
    outcome.decision = Decision::send;
    EXPECT_EQ(checkedText(outcome), "send it");
    outcome.reached = false;
    EXPECT_EQ(checkedText(outcome), "not get so far (it would send it)");
    outcome = reached();
    outcome.decision = Decision::refuse;
    outcome.reason = VersionReason::tooOld;
    EXPECT_EQ(checkedText(outcome), "refuse it: the installed version is too old");
}

TEST(Messages, HaveAWordForEachVerdictAndAdviceForEachStep)
{
    EXPECT_EQ(verdictWord(Verdict::shown), "");
    EXPECT_EQ(verdictWord(Verdict::updated), "Updated");
    EXPECT_EQ(verdictWord(Verdict::history), "Runs");
    MessageFacts facts;
    facts.sent = "Something went out";
    EXPECT_EQ(adviceText(NextStep::none, "Error_FaxMes", facts), "");
    EXPECT_EQ(adviceText(NextStep::retry, "Error_FaxMes", facts),
              "Wait until the fax is finished, then try again.");
    EXPECT_EQ(adviceText(NextStep::checkPrinter, "Error_FaxMes", facts).find("Something went out,"),
              0U);
}
