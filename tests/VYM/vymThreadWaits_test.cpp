// SPDX-License-Identifier: MIT
// The lengths of the worker's waits, and its exact packets: on a scripted clock that records every
// pause and wait, with the model printer.
#include "VYM/vymThread.h"
#include "tests/support/Await.h"
#include "tests/support/ModelPrinter.h"
#include "tests/support/Package.h"
#include "tests/support/Printer.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedTransport.h"

#include <gtest/gtest.h>

namespace {

using Waits = std::vector<unsigned long>;

class WorkerWaits : public ::testing::Test {
protected:
    // A printer that reports its writing three times, the last time as finished.
    void prepare(const char* shortQuery = "SPECIALCMDPATTERN NO")
    {
        m_package.description(
            {"TGMNAME MODEL-A", "UPDATETIME 30", shortQuery, "VERSION MAIN=02.00 main.bin MAINFW"});
        m_package.file("main.bin", imageBytes(150)).open();
        m_manners.writingAnswers = 2;
        m_manners.targetInfo = rows(
            {"TGMNAME MODEL-A", "VERSION MAIN=01.00", "MAXPACKET 160", "SUPPORT_COMMAND 5103"});
        m_printer = std::make_unique<ModelPrinter>(m_manners);
        m_script.answerWith([this](const std::string& packet) {
            return packet.empty() ? std::string() : m_printer->take(packet).answer;
        });
    }
    void runUntil(update_state end)
    {
        ASSERT_TRUE(m_worker.UpdateStart(nullptr, m_address, 48350));
        waitUntil([&] { return state() == end; });
    }
    update_state state()
    {
        tag_devinfo info{};
        m_worker.CheckState(info);
        return info.m_updateState;
    }
    template <class Condition> static void waitUntil(Condition condition)
    {
        EXPECT_TRUE(becomesTrue(condition));
    }

    ScriptedTime m_time;
    TransportScript m_script;
    Package m_package;
    PrinterManners m_manners;
    std::unique_ptr<ModelPrinter> m_printer;
    char m_address[10] = "127.0.0.1";
    vymThread m_worker;
};

TEST_F(WorkerWaits, ASecondBeforeEachQueryByDefault)
{
    prepare();
    runUntil(state_done);
    m_worker.StopThread();
    EXPECT_EQ(m_time.waits(), (Waits{1000, 1000, 1000}));
}

TEST_F(WorkerWaits, ThePollingIntervalBeforeEachQuery)
{
    prepare();
    m_worker.SetPolling(700);
    runUntil(state_done);
    m_worker.StopThread();
    EXPECT_EQ(m_time.waits(), (Waits{700, 700, 700}));
}

TEST_F(WorkerWaits, AsBeforeAfterAnIntervalOf0WasRefused)
{
    prepare();
    m_worker.SetPolling(700);
    EXPECT_FALSE(m_worker.SetPolling(0));
    runUntil(state_done);
    m_worker.StopThread();
    EXPECT_EQ(m_time.waits(), (Waits{700, 700, 700}));
}

TEST_F(WorkerWaits, AgainAndAgainAfterAFailureUntilItIsStopped)
{
    m_manners.enterStatus = 0x1001;
    prepare();
    m_worker.SetPolling(300);
    runUntil(state_failed);
    waitUntil([&] { return m_time.waits().size() >= 3; });
    m_worker.StopThread();
    for (const auto wait : m_time.waits())
        EXPECT_EQ(wait, 300U);
    EXPECT_EQ(m_script.sent().size(), 1U); // and sends no more
}

TEST_F(WorkerWaits, AfterAFailureInTheMiddleToo)
{
    m_manners.refusedPacket = 0;
    prepare();
    runUntil(state_failed);
    waitUntil([&] { return !m_time.waits().empty(); });
    m_worker.StopThread();
    EXPECT_EQ(m_time.waits().front(), 1000U);
    EXPECT_EQ(state(), state_failed);
}

TEST_F(WorkerWaits, AndTheFirmwareHasTheCodeOfAStatusThatRefusesIt)
{
    m_manners.endStatus = 0x0803;
    prepare();
    runUntil(state_failed);
    m_worker.StopThread();
    tag_entryoutcome outcome{};
    ASSERT_TRUE(m_worker.GetEntryOutcome(0, outcome));
    EXPECT_EQ(outcome.m_result, -1);
    EXPECT_TRUE(outcome.m_bytesWentOut);
    EXPECT_FALSE(outcome.m_confirmed);
}

TEST_F(WorkerWaits, EntersWithTheFlagClear)
{
    prepare();
    runUntil(state_done);
    m_worker.StopThread();
    EXPECT_EQ(m_script.sent().front(), printer::reply(0x5101, std::string(36, '\0')));
}

TEST_F(WorkerWaits, QueriesTheFirmwareByTheNameThatItWasSentUnder)
{
    prepare();
    runUntil(state_done);
    m_worker.StopThread();
    const auto sent = m_script.sent();
    EXPECT_EQ(sent[sent.size() - 2],
              printer::reply(0x5103, std::string(2, '\0') + "MAINFW" + std::string(26, '\0')));
}

TEST_F(WorkerWaits, QueriesWithoutANameWhereThePackageWantsItShort)
{
    prepare("SPECIALCMDPATTERN YES");
    runUntil(state_done);
    m_worker.StopThread();
    const auto sent = m_script.sent();
    EXPECT_EQ(sent[sent.size() - 2], printer::reply(0x5103, std::string(2, '\0')));
}

TEST_F(WorkerWaits, KeepsRepliesUpToThePrintersLongestPacketOnceItIsKnown)
{
    prepare();
    runUntil(state_done);
    m_worker.StopThread();
    const auto sizes = m_script.receiveSizes();
    EXPECT_EQ(sizes[0], 4096U); // entering
    EXPECT_EQ(sizes[1], 4096U); // the printer's description, for the first time
    EXPECT_EQ(Waits(sizes.begin() + 2, sizes.end()), Waits(sizes.size() - 2, 160));
}

} // namespace
