// SPDX-License-Identifier: MIT
// The worker with a scripted printer: its status record, the order of its packets, its ends.
#include "UI/vymThreadPrinter.h"
#include "UI/vym_etc.h"
#include "VYM/vymThread.h"
#include "tests/support/Await.h"
#include "tests/support/Printer.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedTransport.h"

#include <gtest/gtest.h>
#include <map>

namespace {

using printer::number;

constexpr const char* kRules[] = {"TGMNAME MODEL-A", "UPDATETIME 30"};

// A printer that answers every command correctly, unless a test overrides the answer.
class SoundPrinter {
public:
    explicit SoundPrinter(std::string targetInfo) : m_targetInfo(std::move(targetInfo)) { }
    std::string answer(const std::string& packet)
    {
        const auto code = packet.size() >= 8 ? packet.substr(2, 2) : std::string();
        if (m_instead.count(code) != 0)
            return m_instead[code];
        if (code == "\x51\x01")
            return printer::enter();
        if (code == "\x50\x01")
            return printer::file(m_targetInfo);
        if (code == "\x50\x02")
            return printer::piece();
        if (code == "\x51\x03")
            return ++m_asked % 3 == 0 ? printer::progress(128, 9, 9) : printer::progress(129, 9, 3);
        return code == "\x51\x02" ? printer::exit() : std::string();
    }
    void instead(std::string code, std::string reply)
    {
        m_instead[std::move(code)] = std::move(reply);
    }

private:
    std::string m_targetInfo;
    std::map<std::string, std::string> m_instead;
    int m_asked = 0;
};

class vymThreadTest : public ::testing::Test {
protected:
    // The printer lists MAIN and BOOT at 01.00; the test supplies the package's rows.
    void prepare(std::vector<std::string> versionRows, bool statusQuery = true)
    {
        m_printer = std::make_unique<SoundPrinter>(
            rows({"TGMNAME MODEL-A", "VERSION MAIN=01.00", "VERSION BOOT=01.00", "MAXPACKET 160",
                  statusQuery ? "SUPPORT_COMMAND 5103" : "NONE"}));
        std::string text = rows({kRules[0], kRules[1]});
        for (const auto& row : versionRows)
            text += row + "\r\n";
        m_package.file("VYMINFO.txt", text).file("main.bin", imageBytes(150)).open();
        m_script.answerWith(
            [this](const std::string& packet) { return m_printer->answer(packet); });
    }
    void start() { ASSERT_TRUE(vymThread_UpdateStart(m_worker, nullptr, m_address, 48350)); }
    tag_devinfo state() const
    {
        tag_devinfo info{};
        EXPECT_TRUE(vymThread_CheckState(m_worker, &info));
        return info;
    }
    tag_devinfo waitFor(update_state wanted)
    {
        EXPECT_TRUE(becomesTrue([&] { return state().m_updateState == wanted; }));
        EXPECT_EQ(state().m_updateState, wanted);
        return state();
    }
    tag_devinfo runToEnd(update_state end = state_done)
    {
        start();
        const auto info = waitFor(end);
        EXPECT_TRUE(vymThread_StopThread(m_worker));
        return info;
    }
    tag_entryoutcome outcome(unsigned index)
    {
        tag_entryoutcome kept{};
        EXPECT_TRUE(vymThread_GetEntryOutcome(m_worker, index, &kept));
        return kept;
    }
    // The commands that were sent, one word each; pieces and repeated queries appear once.
    [[nodiscard]] std::string conversation() const
    {
        static const std::map<std::string, std::string> words = {{"\x51\x01", "enter"},
                                                                 {"\x50\x01", "get"},
                                                                 {"\x50\x02", "send"},
                                                                 {"\x51\x03", "query"},
                                                                 {"\x51\x02", "exit"}};
        std::string text;
        std::string last;
        for (const auto& packet : m_script.sent()) {
            const auto word = words.at(packet.substr(2, 2));
            if (word != last)
                text += (text.empty() ? "" : " ") + word;
            last = word;
        }
        return text;
    }
    void TearDown() override { vym_thread_delete(m_worker); }

    ScriptedTime m_time;
    TransportScript m_script;
    Package m_package;
    std::unique_ptr<SoundPrinter> m_printer;
    char m_address[10] = "127.0.0.1";
    void* m_worker = vym_thread_create();
};

TEST_F(vymThreadTest, BeginsWithNothingDoneAndResult1)
{
    const auto info = state();
    EXPECT_EQ(info.m_updateState, state_initial);
    EXPECT_EQ(info.m_result, 1);
    EXPECT_EQ(info.m_updatedCount, 0U);
    tag_entryoutcome none{};
    EXPECT_FALSE(vymThread_GetEntryOutcome(m_worker, 0, &none));
}

TEST_F(vymThreadTest, UpdatesEveryEntryAndLeavesDownloadMode)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW", "VERSION BOOT=02.00 main.bin BOOTFW"});
    const auto info = runToEnd();
    EXPECT_EQ(info.m_result, 1);
    EXPECT_EQ(info.m_updatedCount, 2U);
    EXPECT_EQ(info.m_firmwareNumber, 2U);
    EXPECT_EQ(info.m_bytesTotal, 0U);
    EXPECT_EQ(conversation(), "enter get send query get send query exit");
    EXPECT_TRUE(outcome(0).m_confirmed);
    EXPECT_EQ(outcome(1).m_number, 2U);
    EXPECT_EQ(outcome(1).m_bytesSent, 150U);
    EXPECT_EQ(m_script.openConnections(), 0U);
}

TEST_F(vymThreadTest, KnowsThePrintersModelOnceItWasQueried)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW"});
    std::string model = "former";
    EXPECT_FALSE(vymThread_GetPrinterModel(m_worker, model));
    EXPECT_EQ(model, "");
    runToEnd();
    EXPECT_TRUE(vymThread_GetPrinterModel(m_worker, model));
    EXPECT_EQ(model, "MODEL-A");
}

TEST_F(vymThreadTest, PausesTwoSecondsBeforeEnteringAndAfterEachFirmware)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW"});
    runToEnd();
    EXPECT_EQ(m_time.pauses(), (std::vector<unsigned long>{2000, 2000, 2000, 2000}));
}

TEST_F(vymThreadTest, DoesNotPollAPrinterWithoutAStatusQuery)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW"}, false);
    EXPECT_EQ(runToEnd().m_updatedCount, 1U);
    EXPECT_EQ(conversation(), "enter get send exit");
    EXPECT_FALSE(outcome(0).m_confirmed);
    EXPECT_TRUE(outcome(0).m_bytesWentOut);
}

TEST_F(vymThreadTest, SkipsAnEntryThatIsNotForThisPrinterAndGoesOn)
{
    prepare({"VERSION FONT=02.00 main.bin FONTFW", "VERSION MAIN=02.00 main.bin MAINFW"});
    const auto info = runToEnd();
    EXPECT_EQ(info.m_result, 1); // the last entry's
    EXPECT_EQ(info.m_updatedCount, 1U);
    EXPECT_EQ(outcome(0).m_result, -11);
    EXPECT_EQ(outcome(0).m_reason, VersionReason::notListed);
    EXPECT_FALSE(outcome(0).m_bytesWentOut);
    EXPECT_EQ(outcome(1).m_result, 1);
}

TEST_F(vymThreadTest, EndsWithTheResultOfASkippedLastEntry)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW", "VERSION FONT=02.00 main.bin FONTFW"});
    const auto info = runToEnd();
    EXPECT_EQ(info.m_result, -11);
    EXPECT_EQ(info.m_updatedCount, 1U);
    EXPECT_STREQ(info.m_firmwareName, "FONTFW");
}

TEST_F(vymThreadTest, LeavesOutAnEntryThatItsCallerDoesNotWantAndKeepsItsOutcome)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW", "VERSION BOOT=02.00 main.bin BOOTFW"});
    ASSERT_TRUE(vymThread_ChooseEntries(m_worker, {{1}, false}));
    const auto info = runToEnd();
    EXPECT_EQ(info.m_result, 1);
    EXPECT_EQ(info.m_updatedCount, 1U);
    EXPECT_EQ(info.m_firmwareNumber, 1U);
    EXPECT_EQ(conversation(), "enter get send query exit");
    EXPECT_EQ(outcome(1).m_number, 2U);
    EXPECT_EQ(outcome(1).m_reason, VersionReason::notChosen);
    EXPECT_EQ(outcome(1).m_result, -11);
    EXPECT_FALSE(outcome(1).m_bytesWentOut);
}

TEST_F(vymThreadTest, LeavesOutWhatIsInstalledAlreadyAlsoWhereTheRuleWouldSendIt)
{
    prepare({"ALLOWVERSIONDOWN YES", "VERSION MAIN=01.00 main.bin MAINFW",
             "VERSION BOOT=00.90 main.bin BOOTFW"});
    ASSERT_TRUE(vymThread_ChooseEntries(m_worker, {{}, true}));
    EXPECT_EQ(runToEnd().m_updatedCount, 1U);
    EXPECT_EQ(outcome(0).m_reason, VersionReason::sameVersion);
    EXPECT_FALSE(outcome(0).m_bytesWentOut);
    EXPECT_TRUE(outcome(1).m_bytesWentOut);
}

TEST_F(vymThreadTest, ReachesTheEndAtOnceWithoutEntries)
{
    prepare({});
    const auto info = runToEnd();
    EXPECT_EQ(info.m_result, 1);
    EXPECT_EQ(info.m_updatedCount, 0U);
    EXPECT_EQ(conversation(), "enter get exit");
}

TEST_F(vymThreadTest, CountsAnEntryOfAnotherSeriesThoughNothingWasSent)
{
    prepare({"VERSION MAIN=XY010200 main.bin MAINFW"}, false);
    // The printer's version is "01.00": the leading characters differ.
    const auto info = runToEnd();
    EXPECT_EQ(info.m_updatedCount, 1U);
    EXPECT_FALSE(outcome(0).m_bytesWentOut);
    EXPECT_EQ(outcome(0).m_reason, VersionReason::otherSeries);
}

TEST_F(vymThreadTest, CallsNothingConfirmedThatWasNeverSent)
{
    prepare({"VERSION MAIN=XY010200 main.bin MAINFW"});
    runToEnd();
    EXPECT_EQ(conversation(), "enter get query exit");
    EXPECT_FALSE(outcome(0).m_confirmed);
}

TEST_F(vymThreadTest, StopsAtARefusalToEnterWithoutLeaving)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW"});
    m_printer->instead("\x51\x01", printer::enter(0x1001));
    const auto info = runToEnd(state_failed);
    EXPECT_EQ(info.m_result, -3);
    EXPECT_EQ(conversation(), "enter");
    EXPECT_EQ(m_script.openConnections(), 0U);
}

struct Failure {
    const char* why;
    const char* command;
    std::string reply;
    int code;
    const char* conversation;
};

void PrintTo(const Failure& failure, std::ostream* out)
{
    *out << failure.why;
}

class vymThreadFailure : public vymThreadTest, public ::testing::WithParamInterface<Failure> { };

TEST_P(vymThreadFailure, IsPublishedAndDownloadModeIsLeft)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW"});
    m_printer->instead(GetParam().command, GetParam().reply);
    const auto info = runToEnd(state_failed);
    EXPECT_EQ(info.m_result, GetParam().code);
    EXPECT_EQ(info.m_bytesTotal, 0U);
    EXPECT_EQ(conversation(), GetParam().conversation);
}

INSTANTIATE_TEST_SUITE_P(
    OnTheWay, vymThreadFailure,
    ::testing::Values(
        Failure{"NoTargetInformation", "\x50\x01", "", -5, "enter get exit"},
        Failure{"AnotherModel", "\x50\x01",
                printer::file(rows({"TGMNAME MODEL-B", "MAXPACKET 160"})), -7, "enter get exit"},
        Failure{"ARefusedPiece", "\x50\x02", printer::piece(0x804), -2, "enter get send exit"},
        Failure{"TroubleWhileWriting", "\x51\x03", printer::progress(0x803, 0, 0), -1,
                "enter get send query exit"}),
    [](const auto& row) { return row.param.why; });

// The first firmware's last block is answered alone, its pieces are not. Its success holds until
// the printer's answer to the next request, or instead of it, shows that it took too little.
struct Denial {
    const char* why;
    std::string replyToFetch;
    int code;
    int firstEntry;
};

void PrintTo(const Denial& denial, std::ostream* out)
{
    *out << denial.why;
}

class vymThreadDenial : public vymThreadTest, public ::testing::WithParamInterface<Denial> {
protected:
    void prepareDenial(const std::vector<std::string>& entries)
    {
        prepare(entries, false);
        m_script.answerWith([this](const std::string& packet) {
            const auto code = packet.size() >= 8 ? packet.substr(2, 2) : std::string();
            if (code == "\x50\x02")
                return ++m_pieces % 3 == 0 ? printer::piece() : std::string();
            return code == "\x50\x01" && m_pieces != 0 ? GetParam().replyToFetch
                                                       : m_printer->answer(packet);
        });
    }

    unsigned m_pieces = 0;
};

TEST_P(vymThreadDenial, WithdrawsASuccessThatWasNotProven)
{
    prepareDenial({"VERSION MAIN=02.00 main.bin MAINFW", "VERSION BOOT=02.00 main.bin BOOTFW"});
    EXPECT_EQ(runToEnd(state_failed).m_result, GetParam().code);
    EXPECT_EQ(outcome(0).m_result, GetParam().firstEntry);
    EXPECT_EQ(outcome(1).m_result, GetParam().code);
    EXPECT_FALSE(outcome(1).m_bytesWentOut);
}

TEST_P(vymThreadDenial, WithdrawsItAlsoAcrossAnEntryThatTheCallerLeftOut)
{
    prepareDenial({"VERSION MAIN=02.00 main.bin MAINFW", "VERSION FONT=02.00 main.bin FONTFW",
                   "VERSION BOOT=02.00 main.bin BOOTFW"});
    ASSERT_TRUE(vymThread_ChooseEntries(m_worker, {{1, 3}, false}));
    EXPECT_EQ(runToEnd(state_failed).m_result, GetParam().code);
    EXPECT_EQ(outcome(0).m_result, GetParam().firstEntry);
    EXPECT_EQ(outcome(1).m_reason, VersionReason::notChosen);
    EXPECT_EQ(outcome(2).m_result, GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(
    BetweenTwoFirmware, vymThreadDenial,
    ::testing::Values(Denial{"ARefusalThatCameLate", printer::piece(0x804), -2, -2},
                      Denial{"APrinterThatHasGone", "", -5, -5},
                      Denial{"APrinterThatAnswersWithAnotherModel",
                             printer::file(rows({"TGMNAME MODEL-B", "MAXPACKET 160"})), -7, 1}),
    [](const auto& row) { return row.param.why; });

TEST_F(vymThreadTest, NeedsThePackagesModel)
{
    m_package.file("VYMINFO.txt", rows({"UPDATETIME 1"})).file("a", "b").open();
    m_printer = std::make_unique<SoundPrinter>(rows({"TGMNAME M", "MAXPACKET 160"}));
    m_script.answerWith([this](const std::string& packet) { return m_printer->answer(packet); });
    EXPECT_EQ(runToEnd(state_failed).m_result, -9);
    EXPECT_EQ(conversation(), "enter get exit");
}

TEST_F(vymThreadTest, StopsPollingOnRequestAndStillSendsTheRest)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW", "VERSION BOOT=02.00 main.bin BOOTFW"});
    m_printer->instead("\x51\x03", printer::progress(129, 9, 3)); // writes forever
    start();
    waitFor(state_writing);
    EXPECT_TRUE(vymThread_StopThread(m_worker));
    const auto info = state();
    EXPECT_EQ(info.m_updateState, state_done);
    EXPECT_EQ(info.m_result, 1);
    EXPECT_EQ(info.m_updatedCount, 2U);
    EXPECT_EQ(conversation(), "enter get send query get send exit");
    EXPECT_FALSE(outcome(0).m_confirmed);
    EXPECT_FALSE(outcome(1).m_confirmed);
}

TEST_F(vymThreadTest, SendsNothingWhenItIsStoppedBeforeTheFirstFirmware)
{
    prepare({"VERSION MAIN=02.00 main.bin MAINFW"});
    vymThread_StopThread(m_worker); // before the start: takes effect once the run has begun
    start();
    EXPECT_TRUE(vymThread_StopThread(m_worker));
    EXPECT_EQ(conversation(), "enter get exit");
    EXPECT_EQ(state().m_updateState, state_entered);
}

TEST_F(vymThreadTest, ReturnsFromEveryStop)
{
    EXPECT_TRUE(vymThread_StopThread(m_worker)); // never started
    prepare({});
    start();
    EXPECT_TRUE(vymThread_StopThread(m_worker));
    EXPECT_TRUE(vymThread_StopThread(m_worker)); // twice
}

TEST_F(vymThreadTest, ServesOneRunOnly)
{
    prepare({});
    start();
    EXPECT_FALSE(vymThread_UpdateStart(m_worker, nullptr, m_address, 48350));
    vymThread_StopThread(m_worker);
    EXPECT_FALSE(vymThread_UpdateStart(m_worker, nullptr, m_address, 48350));
}

TEST_F(vymThreadTest, IsStoppedByItsDestruction)
{
    prepare({});
    start();
    vym_thread_delete(m_worker);
    m_worker = nullptr;
    EXPECT_EQ(m_script.openConnections(), 0U);
}

TEST_F(vymThreadTest, StarvesNoThreadWhileItRepublishesItsEnd)
{
    prepare({});
    start();
    waitFor(state_done);
    for (int i = 0; i < 20000; ++i)
        ASSERT_EQ(state().m_updateState, state_done);
    vymThread_StopThread(m_worker);
}

TEST_F(vymThreadTest, RefusesAPollingIntervalOf0)
{
    EXPECT_FALSE(vymThread_SetPolling(m_worker, 0));
    EXPECT_TRUE(vymThread_SetPolling(m_worker, 500));
    EXPECT_FALSE(vymThread_SetVymInfo(m_worker));
}

} // namespace
