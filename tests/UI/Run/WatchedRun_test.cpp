// SPDX-License-Identifier: MIT
#include "UI/Run/WatchedRun.h"
#include "tests/support/ScriptedTime.h"
#include "tests/support/ScriptedWorker.h"
#include "tests/support/TempFolder.h"

#include <cstring>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

tag_devinfo record(update_state state, std::uint32_t number = 0, const char* name = "",
                   std::int32_t result = 1)
{
    tag_devinfo info{};
    info.m_updateState = state;
    info.m_firmwareNumber = number;
    std::strncpy(info.m_firmwareName, name, sizeof info.m_firmwareName - 1);
    info.m_result = result;
    return info;
}

// A run of a package with two firmware, at 192.0.2.7.
class AWatchedRun : public ::testing::Test {
protected:
    AWatchedRun()
    {
        setenv("XDG_STATE_HOME", folder.path().c_str(), 1);
        target.takeAddress("192.0.2.7");
        facts.program = "test";
        facts.firmware = {{"Main controller", "1.2", "MAIN.BIN"},
                          {"Print engine", "1.1", "ENGINE.BIN"}};
    }
    std::string log()
    {
        const std::filesystem::directory_iterator logs(folder / "vymkit");
        return readFile(logs->path());
    }

    TempFolder folder;
    ScriptedTime time;
    ScriptedWorker worker;
    RunTarget target;
    RunLogFacts facts;
};

} // namespace

TEST_F(AWatchedRun, GivesTheWorkerThePrinterAndItsPolling)
{
    {
        WatchedRun run(facts);
        ASSERT_TRUE(run.start(target, 5001));
        EXPECT_FALSE(run.endCode().has_value());
    }
    EXPECT_THAT(
        worker.calls(),
        ElementsAre("create", "start none 192.0.2.7 5001", "polling 500", "stop", "delete"));
}

TEST_F(AWatchedRun, HasEndedWithASystemErrorWhereNoWorkerRuns)
{
    const struct {
        const char* why;
        bool canBeCreated, hasPrinter;
    } rows[] = {{"no memory", false, true}, {"no thread", true, true}, {"no printer", true, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        worker.canBeCreated = row.canBeCreated;
        worker.canStart = false;
        WatchedRun run(facts);
        EXPECT_FALSE(run.start(row.hasPrinter ? target : RunTarget(), 5001));
        EXPECT_EQ(run.endCode(), -9);
        run.look();
        EXPECT_EQ(run.endCode(), -9);
        run.stop();
        EXPECT_TRUE(run.takeOutcomes().empty());
    }
    EXPECT_EQ(worker.workers, 0);
}

TEST_F(AWatchedRun, EndsWithTheCodeThatTheFirstEndingLookShows)
{
    worker.records = {record(state_entered), record(state_failed, 0, "", -6),
                      record(state_failed, 0, "", -5)};
    WatchedRun run(facts);
    run.start(target, 5001);
    run.look();
    EXPECT_FALSE(run.endCode().has_value());
    run.look();
    EXPECT_EQ(run.endCode(), -6);
    run.look();
    EXPECT_EQ(run.endCode(), -6);
    EXPECT_EQ(run.record().m_result, -5);
}

TEST_F(AWatchedRun, DoesNotTakeTheEndThatAStopBringsForItsOwn)
{
    worker.records = {record(state_entered)};
    worker.recordAfterStop = record(state_done);
    WatchedRun run(facts);
    run.start(target, 5001);
    run.look();
    run.willStop();
    run.stop();
    run.look();
    EXPECT_FALSE(run.endCode().has_value());
    EXPECT_EQ(run.record().m_updateState, state_done);
    EXPECT_EQ(worker.stops, 1);
}

TEST_F(AWatchedRun, StopsItsWorkerOnce)
{
    {
        WatchedRun run(facts);
        run.start(target, 5001);
        run.stop();
    }
    EXPECT_EQ(worker.stops, 1);
    EXPECT_EQ(worker.workers, 0);
}

TEST_F(AWatchedRun, StopsOnceForTwoThreadsThatWait)
{
    std::thread other;
    {
        WatchedRun run(facts);
        ASSERT_TRUE(run.start(target, 5001));
        std::atomic<bool> otherReturned{false};
        worker.atStop = [&] {
            other = std::thread([&] {
                run.stop();
                otherReturned = true;
            });
            EXPECT_FALSE(otherReturned) << "the worker has not ended yet";
        };
        run.stop();
        other.join();
    }
    EXPECT_EQ(worker.stops, 1);
}

TEST_F(AWatchedRun, NeverPairsTheNumberOfOneFirmwareWithTheNameOfAnother)
{
    worker.records = {record(state_finished, 1, "MAIN.BIN"), record(state_finished, 2, "MAIN.BIN"),
                      record(state_checked, 2, "ENGINE.BIN")};
    WatchedRun run(facts);
    run.start(target, 5001);
    for (const std::uint32_t number : {1U, 1U, 2U}) {
        run.look();
        EXPECT_EQ(run.record().m_firmwareNumber, number);
    }
    EXPECT_THAT(log(), HasSubstr(": finished, firmware 1 MAIN.BIN\n"));
    EXPECT_THAT(log(), ::testing::Not(HasSubstr("firmware 2 MAIN.BIN")));
    EXPECT_THAT(log(), HasSubstr(": checked, firmware 2 ENGINE.BIN\n"));
}

TEST_F(AWatchedRun, KnowsSinceWhenNothingHasChanged)
{
    WatchedRun run(facts);
    time.advance(4000); // before the start, so not a wait for the printer
    run.start(target, 5001);
    time.advance(1000);
    run.look();
    EXPECT_EQ(run.quietMilliseconds(), 1000U);
    worker.record.m_bytesDone = 1;
    time.advance(1000);
    run.look();
    EXPECT_EQ(run.quietMilliseconds(), 0U);
    time.advance(61000);
    run.look();
    EXPECT_EQ(run.quietMilliseconds(), 61000U);
}

TEST_F(AWatchedRun, CollectsItsOutcomesAndEndsItsLog)
{
    worker.outcomes = {{1, 1, VersionReason::applies, true, true, 10, 10}};
    WatchedRun run(facts);
    run.start(target, 5001);
    run.log().note("a note");
    run.stop();
    const auto outcomes = run.takeOutcomes();
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_TRUE(outcomes[0].m_confirmed);
    run.finish("updated", 1);
    EXPECT_THAT(log(), HasSubstr("note: a note\n"));
    EXPECT_THAT(log(), HasSubstr("outcome of firmware 1: applies; sent 10 of 10 bytes"));
    EXPECT_THAT(log(), HasSubstr("outcome of firmware 2: not reached\n"));
    EXPECT_THAT(log(), HasSubstr("result: 1 updated\n"));
}
