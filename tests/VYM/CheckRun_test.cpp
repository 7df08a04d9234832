// SPDX-License-Identifier: MIT
#include "VYM/CheckRun.h"
#include "tests/support/FailingMemory.h"
#include "tests/support/Printer.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedTransport.h"

#include <gtest/gtest.h>

namespace {

class CheckRun : public ::testing::Test {
protected:
    void prepare(std::initializer_list<std::string_view> texts)
    {
        m_package = std::make_unique<Package>();
        m_package->description(texts).file("main.bin", "image").open();
    }
    CheckReport run(bool stopped = false, const EntryChoice& choice = {})
    {
        char address[] = "127.0.0.1";
        const std::atomic<bool> stop = stopped;
        return checkPrinter(nullptr, address, 48350, stop, choice);
    }
    void answer(const std::string& targetInfo)
    {
        m_script.queueReply(printer::enter()).queueReply(printer::file(targetInfo));
        m_script.queueReply(printer::exit());
    }
    static std::string info(std::string_view model)
    {
        return rows({"TGMNAME " + std::string(model), "VERSION MAIN=01.10", "VERSION BOOT=03.00",
                     "VERSION FONT=01.00", "MAXPACKET 160"});
    }

    ScriptedTime m_time;
    TransportScript m_script;
    std::unique_ptr<Package> m_package;
    std::unique_ptr<MemoryShortage> m_shortage;
};

TEST_F(CheckRun, DecidesEveryEntryAndSendsNoFirmware)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 main.bin A",
             "VERSION BOOT=02.00 main.bin B", "VERSION DICT=01.00 main.bin C"});
    answer(info("M"));
    const auto report = run();
    EXPECT_EQ(report.result, 1);
    EXPECT_EQ(report.printerModel, "M");
    ASSERT_EQ(report.entries.size(), 3U);
    EXPECT_TRUE(report.entries[0].decision.send);
    EXPECT_EQ(report.entries[0].installedVersion, "01.10");
    EXPECT_EQ(report.entries[1].decision.reason, VersionReason::notNewer);
    EXPECT_EQ(report.entries[2].decision.reason, VersionReason::notListed);
    EXPECT_EQ(report.entries[2].installedVersion, "");
    const auto sent = m_script.sent();
    ASSERT_EQ(sent.size(), 3U); // enter, get the target information, leave
    EXPECT_EQ(sent[2].substr(2, 2), "\x51\x02");
    EXPECT_EQ(m_script.openConnections(), 0U);
}

TEST_F(CheckRun, LeavesOutWhatItsCallerDoesNotWantAndWhatIsInstalledAlready)
{
    prepare({"TGMNAME M", "ALLOWVERSIONDOWN YES", "UPDATETIME 1", "VERSION MAIN=01.10 main.bin A",
             "VERSION BOOT=04.00 main.bin B", "VERSION FONT=01.01 main.bin C"});
    answer(info("M"));
    const auto report = run(false, {{1, 3}, true});
    ASSERT_EQ(report.entries.size(), 3U);
    EXPECT_EQ(report.entries[0].decision.reason, VersionReason::sameVersion);
    EXPECT_EQ(report.entries[1].decision.reason, VersionReason::notChosen);
    EXPECT_TRUE(report.entries[2].decision.send); // an older version is not the same
    for (const auto& entry : report.entries)
        EXPECT_TRUE(entry.reached);
    answer(info("M"));
    EXPECT_TRUE(run().entries[0].decision.send); // as the package's rule says
}

TEST_F(CheckRun, RefusesAnotherModelThatHasTheSameVersions)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.10 main.bin A"});
    answer(info("OTHER"));
    EXPECT_EQ(run(false, {{}, true}).entries[0].decision.reason, VersionReason::otherModel);
}

TEST_F(CheckRun, SaysWhatAnUpdateWouldNotReach)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=bad main.bin A",
             "VERSION BOOT=04.00 main.bin B"});
    answer(info("M"));
    const auto report = run();
    EXPECT_EQ(report.entries[0].decision.code, -5);
    EXPECT_TRUE(report.entries[0].reached);
    EXPECT_FALSE(report.entries[1].reached);
}

TEST_F(CheckRun, RefusesAnotherModel)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 main.bin A"});
    answer(info("OTHER"));
    const auto report = run();
    EXPECT_EQ(report.result, 1);
    EXPECT_EQ(report.entries[0].decision.code, -7);
    EXPECT_EQ(report.printerModel, "OTHER");
}

TEST_F(CheckRun, SaysThatAnImageIsMissingFromThePackage)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 gone.bin A"});
    answer(info("M"));
    const auto decision = run().entries[0].decision;
    EXPECT_EQ(decision.code, -8);
    EXPECT_FALSE(decision.send);
}

TEST_F(CheckRun, SaysThatNothingCouldBeSentWithoutATimeOrAPacketForIt)
{
    prepare({"TGMNAME M", "UPDATETIME 0", "VERSION MAIN=01.20 main.bin A"});
    answer(info("M"));
    EXPECT_EQ(run().entries[0].decision.code, -5);
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 main.bin A"});
    answer(rows({"TGMNAME M", "VERSION MAIN=01.10", "MAXPACKET 60"}));
    EXPECT_EQ(run().entries[0].decision.code, -5);
}

TEST_F(CheckRun, ReturnsTheFailuresCodeAndLeavesDownloadMode)
{
    prepare({"TGMNAME M"});
    m_script.queueReply(printer::enter(0x1002));
    EXPECT_EQ(run().result, -4);
    EXPECT_EQ(m_script.sent().size(), 1U);
    m_script.queueReply(printer::enter()).queueReply("").queueReply(printer::exit());
    EXPECT_EQ(run().result, -5);
    EXPECT_EQ(m_script.sent().back().substr(2, 2), "\x51\x02");
}

TEST_F(CheckRun, LeavesDownloadModeHoweverLittleMemoryThereIs)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 main.bin A",
             "VERSION BOOT=04.00 main.bin B", "VERSION FONT=02.00 main.bin C"});
    m_script.beforeEachCall([this] { m_shortage.reset(); });
    int allowed = 0;
    for (CheckReport report{}; report.entries.empty(); ++allowed) {
        ASSERT_LT(allowed, 2000);
        const auto before = m_script.sent().size();
        m_script.queueReply(printer::enter());
        m_script.answerWith([this, allowed](const std::string& packet) {
            const bool asked = packet.substr(2, 2) == "\x50\x01";
            auto reply = asked ? printer::file(info("M")) : printer::exit();
            if (asked)
                m_shortage = std::make_unique<MemoryShortage>(allowed);
            return reply;
        });
        report = run();
        m_shortage.reset();
        EXPECT_EQ(report.entries.size(), report.result == 1 ? 3U : 0U)
            << "no half of the decisions";
        EXPECT_EQ(m_script.sent().size(), before + 3) << allowed;
        EXPECT_EQ(m_script.sent().back().substr(2, 2), "\x51\x02") << allowed;
    }
    EXPECT_GE(allowed, 2);
}

TEST_F(CheckRun, NeedsThePackagesModel)
{
    prepare({"OTHER 1"});
    answer(info("M"));
    EXPECT_EQ(run().result, -9);
}

TEST_F(CheckRun, LeavesDownloadModeWhenItIsStopped)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 main.bin A"});
    m_script.queueReply(printer::enter()).queueReply(printer::exit());
    const auto report = run(true);
    EXPECT_TRUE(report.entries.empty());
    EXPECT_EQ(m_script.sent().size(), 2U);
}

TEST_F(CheckRun, DecidesWithoutAPrinterAsWithOne)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 main.bin A",
             "VERSION BOOT=02.00 main.bin A", "VERSION NONE=02.00 main.bin A"});
    answer(info("M"));
    const auto checked = run();
    const auto thought = checkTargetInfo(info("M"));
    EXPECT_EQ(thought.result, checked.result);
    EXPECT_EQ(thought.printerModel, "M");
    ASSERT_EQ(thought.entries.size(), checked.entries.size());
    for (std::size_t i = 0; i < thought.entries.size(); ++i) {
        EXPECT_EQ(thought.entries[i].decision.code, checked.entries[i].decision.code);
        EXPECT_EQ(thought.entries[i].decision.reason, checked.entries[i].decision.reason);
        EXPECT_EQ(thought.entries[i].installedVersion, checked.entries[i].installedVersion);
    }
}

TEST_F(CheckRun, ReturnsTheCodeOfAnIncompleteText)
{
    prepare({"TGMNAME M", "UPDATETIME 1", "VERSION MAIN=01.20 main.bin A"});
    EXPECT_EQ(checkTargetInfo("").result, -9);
    EXPECT_EQ(checkTargetInfo("MAXPACKET 7\r\n").result, -5);
}

} // namespace
