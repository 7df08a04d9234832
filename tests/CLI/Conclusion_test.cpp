// SPDX-License-Identifier: MIT
#include "CLI/Conclusion.h"
#include "tests/CLI/CommandRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

PackageFacts twoFirmware()
{
    PackageFacts package{};
    package.model = "Model 100";
    package.needsExitOperation = yesno_no;
    package.firmware = {{1, "MAIN", "2", "Main", "2", "MAIN", "", "main.bin", 4000UL},
                        {2, "ENGINE", "2", "Engine", "2", "ENGINE", "", "engine.bin", 700UL}};
    return package;
}

UpdateFacts ended(int code, std::vector<tag_entryoutcome> outcomes)
{
    UpdateFacts facts;
    facts.address = "192.0.2.7";
    facts.endCode = code;
    facts.outcomes = std::move(outcomes);
    return facts;
}

tag_entryoutcome sent(std::uint32_t number, int code, bool isConfirmed, std::uint32_t bytes)
{
    return {number, code, VersionReason::applies, true, isConfirmed, bytes, 4000};
}

tag_entryoutcome unsent(std::uint32_t number, int code, VersionReason reason)
{
    return {number, code, reason, false, false, 0, 0};
}

} // namespace

TEST(Conclusion, EveryEndOfARunHasItsCodeNameAndNextStep)
{
    // NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order that reads best
    const struct {
        const char* why;
        UpdateFacts facts;
        int exitCode;
        const char* name;
        NextStep next;
        const char* message;
    } rows[] = {
        {"updated", ended(1, {sent(1, 1, true, 4000)}), 0, "updated", NextStep::none,
         "has taken the update"},
        {"a printer that does not report its writing", ended(1, {sent(1, 1, false, 4000)}), 0,
         "updated", NextStep::none, "This printer does not confirm"},
        {"skipped", ended(-11, {unsent(1, -11, VersionReason::notListed)}), 2, "nothing-to-update",
         NextStep::none, "needs nothing"},
        {"another series", ended(1, {unsent(1, 1, VersionReason::otherSeries)}), 2,
         "nothing-to-update", NextStep::none, "needs nothing"},
        {"no firmware handled at all", ended(1, {}), 2, "nothing-to-update", NextStep::none,
         "needs nothing"},
        {"another model", ended(-7, {unsent(1, -7, VersionReason::otherModel)}), 17, "other-model",
         NextStep::chooseOtherPackage, "is for the model Model 100"},
        {"too old", ended(-12, {unsent(1, -12, VersionReason::tooOld)}), 22, "too-old",
         NextStep::chooseOtherPackage, "version of firmware 1 (Main)"},
        {"too old after a firmware that was sent",
         ended(-12, {sent(1, 1, true, 4000), unsent(2, -12, VersionReason::tooOld)}), 22, "too-old",
         NextStep::chooseOtherPackage,
         "Firmware 1 (Main) was sent and confirmed. The version of firmware 2 (Engine)"},
        {"too old after a firmware that was not confirmed",
         ended(-12, {sent(1, 1, false, 4000), unsent(2, -12, VersionReason::tooOld)}), 22,
         "too-old", NextStep::checkPrinter, "version of firmware 2 (Engine)"},
        {"an error in place of the status, after nothing was sent",
         ended(-1, {unsent(1, 1, VersionReason::otherSeries)}), 11, "device-error",
         NextStep::chooseOtherPackage, "The package is for another series: firmware 1 (Main)"},
        {"the same of a rule that never sends it", ended(-1, {unsent(1, 1, VersionReason::noRule)}),
         11, "device-error", NextStep::chooseOtherPackage, "is for another series"},
        {"broken off before anything is known to have gone out", ended(-6, {sent(1, -6, false, 0)}),
         16, "connection-lost", NextStep::checkPrinter,
         "when the sending of firmware 1 (Main) began. The first bytes of a firmware may"},
        {"an unreadable version", ended(-5, {unsent(1, -5, VersionReason::unreadableVersion)}), 15,
         "bad-reply", NextStep::chooseOtherPackage, "cannot be compared"},
        {"an unreadable image", ended(-8, {sent(1, -8, false, 2000)}), 18, "firmware-unreadable",
         NextStep::checkPrinter, "image of firmware 1 (Main)"},
        {"refused by the printer", ended(-2, {sent(1, -2, false, 4000)}), 12, "data-damaged",
         NextStep::checkPrinter, "while firmware 1 (Main) was being sent (4000 of 4000 bytes)"},
        {"lost before a firmware", ended(-6, {unsent(1, -6, VersionReason::undecided)}), 16,
         "connection-lost", NextStep::retry, "before firmware 1 (Main) was sent"},
        {"lost while the printer wrote", ended(-6, {sent(1, 1, false, 4000)}), 16,
         "connection-lost", NextStep::checkPrinter, "before the printer confirmed it"},
        {"lost between two firmware", ended(-6, {sent(1, 1, true, 4000)}), 16, "connection-lost",
         NextStep::retry, "Firmware 1 (Main) was sent and confirmed. The connection to"},
        {"busy", ended(-3, {}), 13, "printer-busy", NextStep::retry, "is busy"},
        {"fax", ended(-4, {}), 14, "fax-in-use", NextStep::retry, "a fax"},
        {"device error", ended(-1, {}), 11, "device-error", NextStep::retry, "before any firmware"},
        {"a missing argument", ended(-10, {}), 20, "other-error", NextStep::retry, "expected"},
        {"a code of no meaning", ended(0, {}), 20, "other-error", NextStep::retry, "expected"},
        {"a code of no meaning", ended(-99, {}), 20, "other-error", NextStep::retry, "expected"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto outcome = concludeUpdate(twoFirmware(), row.facts);
        EXPECT_EQ(outcome.exitCode, row.exitCode);
        EXPECT_EQ(outcome.name, row.name);
        EXPECT_EQ(outcome.next, row.next);
        EXPECT_THAT(outcome.message, HasSubstr(row.message));
        EXPECT_EQ(outcome.message.find('{'), std::string::npos);
        EXPECT_EQ(outcome.firmware.size(), 2U);
    }
}

TEST(Conclusion, AStoppedRunSaysWhetherAPersonHasToLook)
{
    const struct {
        const char* why;
        std::vector<tag_entryoutcome> outcomes;
        int exitCode;
        NextStep next;
    } rows[] = {
        {"nothing handled", {}, 130, NextStep::retry},
        {"nothing sent", {unsent(1, -11, VersionReason::notNewer)}, 130, NextStep::retry},
        {"sent and not confirmed", {sent(1, 1, false, 4000)}, 130, NextStep::checkPrinter},
        {"one of two confirmed",
         {sent(1, 1, true, 4000), sent(2, 1, false, 700)},
         130,
         NextStep::checkPrinter},
        {"confirmed, the rest not reached", {sent(1, 1, true, 4000)}, 130, NextStep::retry},
        {"all confirmed", {sent(1, 1, true, 4000), sent(2, 1, true, 700)}, 0, NextStep::none},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        UpdateFacts facts;
        facts.lastRecord.m_result = 1;
        facts.stop = StopCause::user;
        facts.outcomes = row.outcomes;
        const auto outcome = concludeUpdate(twoFirmware(), facts);
        EXPECT_EQ(outcome.exitCode, row.exitCode);
        EXPECT_EQ(outcome.next, row.next);
    }
}

TEST(Conclusion, SaysWhyThereIsNoConnection)
{
    const struct {
        std::optional<ConnectProblem> connect;
        const char* title;
        const char* message;
    } rows[] = {
        {ConnectProblem::refused, "no connection", "refuses connections to its port 48350"},
        {ConnectProblem::timedOut, "no connection", "Nothing answered at 192.0.2.7, port 48350"},
        {ConnectProblem::noRoute, "no connection", "knows no way to 192.0.2.7"},
        {ConnectProblem::unknownHost, "no connection", "is unknown. Check the name"},
        {ConnectProblem::none, "connection lost",
         "was reached, but the connection was lost, or an"},
        {ConnectProblem::other, "no connection", "There is no connection"},
        {std::nullopt, "no connection", "There is no connection"},
    };
    auto package = twoFirmware();
    package.portNumber = 48350;
    for (const auto& row : rows) {
        auto facts = ended(-6, {});
        facts.link.connect = row.connect;
        const auto outcome = concludeUpdate(package, facts);
        EXPECT_EQ(outcome.title, row.title);
        EXPECT_THAT(outcome.message, HasSubstr(row.message));
        EXPECT_EQ(outcome.exitCode, 16);
        EXPECT_EQ(outcome.name, "connection-lost");
        CheckFacts check;
        check.address = "192.0.2.7";
        check.report.result = -6;
        check.link.connect = row.connect;
        EXPECT_THAT(concludeCheck(package, check).message, HasSubstr(row.message));
    }
}

// A printer that was reached is switched on.
TEST(Conclusion, SaysOfAPrinterThatWasReachedNeitherThatItIsOffNorThatItsAddressIsWrong)
{
    auto facts = ended(-6, {unsent(1, -6, VersionReason::undecided)});
    facts.link.connect = ConnectProblem::none;
    const auto outcome = concludeUpdate(twoFirmware(), facts);
    EXPECT_THAT(outcome.message, HasSubstr("was reached, but the connection was lost, or an"));
    EXPECT_THAT(outcome.message, testing::Not(HasSubstr("switched on")));
    EXPECT_EQ(outcome.title, "connection lost");
}

TEST(Conclusion, NamesTheProgramsThatHaveTheUsbPrinterOpen)
{
    auto facts = ended(-6, {});
    facts.link.connect = ConnectProblem::other;
    facts.link.usedBy = "usb (process 12)";
    const auto outcome = concludeUpdate(twoFirmware(), facts);
    EXPECT_EQ(outcome.title, "no connection");
    EXPECT_THAT(outcome.message, HasSubstr("at 192.0.2.7 is in use by usb (process 12). Wait"));
    EXPECT_EQ(outcome.exitCode, 16);
    CheckFacts check;
    check.report.result = -6;
    check.link.connect = ConnectProblem::other;
    check.link.usedBy = facts.link.usedBy;
    EXPECT_THAT(concludeCheck(twoFirmware(), check).message, HasSubstr("is in use by usb (proc"));
}

TEST(Conclusion, TellsNoAnswerFromOneThatCannotBeUsed)
{
    const struct {
        std::optional<bool> isAnswered;
        const char* message;
    } rows[] = {
        {std::nullopt, "gave no answer, or none that was expected, before any firmware was sent."},
        {false, "gave no answer in time, before any firmware was sent. Wait until the printer"},
        {true, "answered, but an answer was missing, incomplete or not the expected one, before"},
    };
    for (const auto& row : rows) {
        auto facts = ended(-5, {});
        facts.link.isAnswered = row.isAnswered;
        const auto outcome = concludeUpdate(twoFirmware(), facts);
        EXPECT_THAT(outcome.message, HasSubstr(row.message));
        EXPECT_EQ(outcome.title, "no expected answer");
        EXPECT_EQ(outcome.exitCode, 15);
    }
}

TEST(Conclusion, NumbersThatNoFirmwareHasAreLeftOut)
{
    const auto outcome =
        concludeUpdate(twoFirmware(), ended(-6, {sent(0, -6, false, 1), sent(3, -6, false, 1)}));
    EXPECT_FALSE(outcome.firmware[0].reached);
    EXPECT_FALSE(outcome.firmware[1].reached);
    CheckFacts check;
    check.report = {1, "", {{9, "", "", "", {true, 1, VersionReason::applies}, true}, {}}};
    EXPECT_EQ(concludeCheck(twoFirmware(), check).exitCode, 2);
}

TEST(Conclusion, EveryMessageReadsAsWritten)
{
    std::string all;
    const auto add = [&all](const Outcome& outcome) {
        all += outcome.name + " (" + outcome.title + ", " + std::string(nextStepName(outcome.next))
            + "): " + outcome.message + "\n";
    };
    auto package = twoFirmware();
    for (const int code : {1, -1, -2, -3, -4, -5, -6, -7, -8, -9, -10, -11, -12}) {
        add(concludeUpdate(package, ended(code, {})));
        add(concludeUpdate(package, ended(code, {sent(1, code, false, 2000)})));
    }
    package.needsExitOperation = yesno_yes;
    add(concludeUpdate(package, ended(1, {sent(1, 1, true, 4000)})));
    add(concludeUpdate(package, ended(-11, {})));
    for (const auto cause : {StopCause::user, StopCause::deadline, StopCause::answer}) {
        UpdateFacts facts;
        facts.address = "192.0.2.7";
        facts.lastRecord.m_result = 1;
        facts.stop = cause;
        add(concludeUpdate(package, facts));
    }
    expectGolden("messages.txt", all);
}
