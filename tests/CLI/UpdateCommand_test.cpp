// SPDX-License-Identifier: MIT
#include "tests/CLI/CommandRun.h"
#include "tests/support/ScriptedLocks.h"

#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::vector<tag_devinfo> kWholeRun = {
    status(state_initial),
    status(state_entered),
    status(state_checked, 1, "MAIN.BIN"),
    status(state_sending, 1, "MAIN.BIN", 1000, 4000),
    status(state_sending, 1, "MAIN.BIN", 4000, 4000),
    status(state_writing, 1, "MAIN.BIN", 1000, 4000, 1),
    status(state_finished, 1, "MAIN.BIN", 4000, 4000, 1),
    status(state_checked, 2, "ENGINE.BIN", 0, 0, 1, -11),
    status(state_done, 2, "ENGINE.BIN", 0, 0, 1, -11),
};

// An update of a printer that takes the first firmware and needs the second one not.
class Update : public CommandRun {
public:
    Update()
    {
        worker.records = kWholeRun;
        worker.outcomes = {confirmed(1, 4000),
                           {2, -11, VersionReason::notNewer, false, false, 0, 0}};
    }
    int with(std::vector<std::string> words)
    {
        words.insert(words.begin(), {"update", "--yes", "--address", "192.0.2.7"});
        return runOnPackage(std::move(words));
    }
    int text() { return with({}); }
    int json() { return with({"--json"}); }
    // A signal arrives while that record is looked at; the worker then ends with another one.
    void interrupt(std::size_t look, tag_devinfo last)
    {
        worker.atLook = [look](std::size_t now) {
            if (now == look)
                kill(getpid(), SIGINT);
        };
        worker.stopFollowsLook = look;
        worker.recordAfterStop = last;
        worker.lookTakes = 1; // so that a late end of the run is no long wait without a sign
    }
};

std::size_t linesWith(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

} // namespace

TEST(UpdateCommand, RunsTheWorkerToItsEndAndSaysWhatItDid)
{
    Update update;
    EXPECT_EQ(update.text(), 0);
    EXPECT_EQ(update.worker.port, "192.0.2.7");
    EXPECT_EQ(update.worker.portNumber, 48350);
    EXPECT_EQ(update.worker.polling, 500U);
    EXPECT_EQ(update.worker.stops, 1);
    EXPECT_EQ(update.worker.workers, 0);
    expectGolden("update-updated.txt", update.out);
    expectGolden("update-progress.txt", update.err);
}

TEST(UpdateCommand, WritesAJsonLineForEachChangeAndOneResult)
{
    Update update;
    update.worker.records.insert(update.worker.records.begin() + 3, 3, kWholeRun[2]);
    EXPECT_EQ(update.json(), 0);
    expectGolden("update-updated.json", update.out);
    EXPECT_EQ(update.err, "");
}

TEST(UpdateCommand, ShowsNoProgressOnRequest)
{
    Update update;
    EXPECT_EQ(update.with({"--quiet"}), 0);
    EXPECT_EQ(update.err, "");
    EXPECT_THAT(update.out, StartsWith("Updated: "));
}

TEST(UpdateCommand, LeavesALogOfTheRun)
{
    Update update;
    EXPECT_EQ(update.with({"--verbose"}), 0);
    const std::filesystem::directory_iterator logs(update.folder / "state/vymkit");
    const auto text = readFile(logs->path());
    EXPECT_THAT(text, StartsWith("program: vymkit-cli "));
    for (const auto* part :
         {"package: /", "model: Model 100\n", "firmware 2: Print engine 1.1.5\n",
          "address: 192.0.2.7\n", "note: no sleep inhibitor: ", ": writing, firmware 1 MAIN.BIN\n",
          "outcome of firmware 1: applies; sent 4000 of 4000 bytes, confirmed by the printer; ",
          "outcome of firmware 2: not-newer; nothing sent; -11 nothing-to-update\n",
          "result: 1 updated\nended: "})
        EXPECT_THAT(text, HasSubstr(part));
    EXPECT_THAT(update.err, HasSubstr("log: FOLDER/state/vymkit/run-"));
}

TEST(UpdateCommand, GoesOnWithoutALog)
{
    Update update;
    update.folder.write("state", "a file where a folder should be");
    EXPECT_EQ(update.with({"--verbose"}), 0);
    EXPECT_THAT(update.err, HasSubstr("no log: FOLDER/state/vymkit: Not a directory\n"));
}

TEST(UpdateCommand, MentionsAMissingLogOnlyOnRequest)
{
    Update update;
    update.folder.write("state", "a file where a folder should be");
    EXPECT_EQ(update.text(), 0);
    expectGolden("update-progress.txt", update.err);
}

TEST(UpdateCommand, ClaimsNoUpdateWhenNothingWasSent)
{
    Update update;
    update.package.firmware.resize(1);
    update.worker.records = {status(state_initial), status(state_done, 1, "MAIN.BIN", 0, 0, 1)};
    update.worker.outcomes = {{1, 1, VersionReason::otherSeries, false, false, 0, 0}};
    EXPECT_EQ(update.text(), 2);
    expectGolden("update-nothing.txt", update.out);
    EXPECT_EQ(update.json(), 2);
    expectGolden("update-nothing.json", update.out);
}

TEST(UpdateCommand, SaysWhatToDoIfThePackageNeedsAPersonsHelp)
{
    Update update;
    update.package.needsExitOperation = yesno_yes;
    EXPECT_EQ(update.text(), 0);
    EXPECT_THAT(update.out, HasSubstr("switch it off and on again"));
}

TEST(UpdateCommand, SaysThatTheConnectionBrokeInTheMiddleOfAFirmware)
{
    Update update;
    update.worker.records = {kWholeRun[3], status(state_failed, 1, "MAIN.BIN", 0, 0, 0, -6)};
    update.worker.outcomes = {{1, -6, VersionReason::applies, true, false, 2000, 4000}};
    EXPECT_EQ(update.text(), 16);
    EXPECT_EQ(update.worker.stops, 1);
    expectGolden("update-lost.txt", update.err + update.out);
    EXPECT_EQ(update.json(), 16);
    expectGolden("update-lost.json", update.out);
}

TEST(UpdateCommand, ReportsThatAPrinterCannotBeReached)
{
    Update update;
    update.worker.records = {status(state_initial), status(state_failed, 0, "", 0, 0, 0, -6)};
    update.worker.outcomes.clear();
    EXPECT_EQ(update.text(), 16);
    expectGolden("update-unreachable.txt", update.err + update.out);
}

TEST(UpdateCommand, EndsWithASystemErrorWhereNoWorkerRuns)
{
    for (const bool canCreate : {false, true}) {
        Update update;
        update.worker.canBeCreated = canCreate;
        update.worker.canStart = false;
        EXPECT_EQ(update.json(), 19);
        EXPECT_THAT(update.out, HasSubstr(R"("name":"system-error","result_code":-9)"));
        EXPECT_EQ(update.worker.workers, 0);
    }
}

TEST(UpdateCommand, ASignalBeforeTheFirstByteStopsTheRun)
{
    Update update;
    update.interrupt(1, status(state_entered));
    update.worker.outcomes.clear();
    EXPECT_EQ(update.text(), 130);
    EXPECT_EQ(update.worker.stops, 1);
    expectGolden("update-stopped-early.txt", update.err + update.out);
}

TEST(UpdateCommand, ASignalAmidATransferLetsItEndAndSendsAPersonToThePrinter)
{
    Update update;
    update.interrupt(3, status(state_writing, 2, "ENGINE.BIN", 10, 700, 2));
    update.worker.outcomes = {{1, 1, VersionReason::applies, true, false, 4000, 4000},
                              {2, 1, VersionReason::applies, true, false, 700, 700}};
    EXPECT_EQ(update.text(), 130);
    expectGolden("update-stopped.txt", update.err + update.out);
    update.worker.looks = 0;
    EXPECT_EQ(update.json(), 130);
    EXPECT_THAT(update.out, HasSubstr(R"("type":"stopping","schema_version":1)"));
    EXPECT_THAT(update.out, HasSubstr(R"("cause":"signal"})"));
    EXPECT_THAT(update.out, HasSubstr(R"("next":"check-printer")"));
    EXPECT_THAT(update.out, HasSubstr(R"("firmware_bytes_sent":true)"));
}

TEST(UpdateCommand, FurtherSignalsOnlyRepeatTheExplanation)
{
    Update update;
    update.interrupt(1, status(state_entered));
    update.worker.outcomes.clear();
    update.worker.atStop = [&update] {
        for (int i = 0; i < 3; ++i) {
            const auto before = update.worker.looks.load();
            kill(getpid(), i == 1 ? SIGTERM : SIGHUP);
            while (update.worker.looks == before) // until it has been noticed
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    };
    EXPECT_EQ(update.text(), 130);
    EXPECT_EQ(update.worker.stops, 1);
    EXPECT_GE(linesWith(update.err, "You asked to stop"), 2U);
}

TEST(UpdateCommand, TheTimeLimitStopsTheRunAsASignalDoes)
{
    Update update;
    update.worker.records = {status(state_initial)};
    update.worker.outcomes.clear();
    EXPECT_EQ(update.with({"--json", "--deadline", "3"}), 130);
    EXPECT_EQ(update.worker.stops, 1);
    EXPECT_THAT(update.out, HasSubstr(R"("cause":"deadline"})"));
    EXPECT_THAT(update.out, HasSubstr(R"("name":"stopped","result_code":null)"));
    EXPECT_THAT(update.out, HasSubstr("longer --deadline"));
    EXPECT_THAT(update.out, HasSubstr(R"("next":"retry")"));
}

TEST(UpdateCommand, SaysAfterAMinuteWithoutASignThatThisCanBeNormal)
{
    Update update;
    update.worker.records.insert(update.worker.records.begin() + 5, 62, kWholeRun[5]);
    EXPECT_EQ(update.text(), 0);
    EXPECT_EQ(linesWith(update.err, "Nothing has changed for"), 1U);
    EXPECT_THAT(update.err, HasSubstr("Nothing has changed for 60 seconds, since 0:06"));
    EXPECT_THAT(update.err, HasSubstr("--deadline"));
    update.worker.looks = 0;
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(update.out, HasSubstr(R"({"type":"quiet","schema_version":1,"seconds":)"));
    EXPECT_THAT(update.out, HasSubstr(R"("quiet_seconds":60.0})"));
    update.worker.looks = 0;
    EXPECT_EQ(update.with({"--quiet"}), 0);
    EXPECT_EQ(update.err, "");
}

TEST(UpdateCommand, AStallLimitEndsAWaitWithoutProgress)
{
    Update update;
    update.worker.records.resize(6); // it writes and writes
    update.worker.outcomes = {{1, 1, VersionReason::applies, true, false, 4000, 4000}};
    EXPECT_EQ(update.with({"--stall-limit", "30", "--json"}), 130);
    EXPECT_THAT(update.out, HasSubstr(R"("cause":"stall-limit"})"));
    EXPECT_THAT(update.out, HasSubstr("showed no progress for 30 seconds"));
    EXPECT_THAT(update.out, HasSubstr(R"("next":"check-printer")"));
    EXPECT_EQ(update.worker.stops, 1);
}

TEST(UpdateCommand, AStallLimitLeavesARunAloneThatMovesOn)
{
    Update update;
    EXPECT_EQ(update.with({"--stall-limit", "2"}), 0);
}

TEST(UpdateCommand, KeysThatQuitOrHaltAProgramOnlyAskItToStop)
{
    for (const int signal : {SIGQUIT, SIGTSTP}) {
        Update update;
        update.interrupt(1, status(state_entered));
        update.worker.outcomes.clear();
        update.worker.atLook = [signal](std::size_t now) {
            if (now == 1)
                kill(getpid(), signal);
        };
        EXPECT_EQ(update.text(), 130);
        EXPECT_THAT(update.err, HasSubstr("You asked to stop"));
    }
}

TEST(UpdateCommand, NeverPairsTheNumberOfOneFirmwareWithTheNameOfAnother)
{
    Update update;
    auto next = kWholeRun[6];
    next.m_firmwareNumber = 2; // published before the name
    update.worker.records.insert(update.worker.records.begin() + 7, 2, next);
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(
        update.out,
        HasSubstr(R"("firmware_number":2,"firmware_count":2,"firmware_name":"ENGINE.BIN")"));
    EXPECT_EQ(update.out.find(R"("firmware_number":2,"firmware_count":2,"firmware_name":"MAIN)"),
              std::string::npos);
    update.worker.looks = 0;
    EXPECT_EQ(update.text(), 0);
    expectGolden("update-progress.txt", update.err);
}

TEST(UpdateCommand, NotesInItsLogWhatTheSystemIs)
{
    Update update;
    update.package.systemBounds = {{0x1040, 0x1060}};
    update.worker.systemVersion = 0x900;
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(update.out, HasSubstr(R"("warning":null,"verdict":null}
)"));
    const std::filesystem::directory_iterator logs(update.folder / "state/vymkit");
    EXPECT_THAT(readFile(logs->path()), HasSubstr("note: This system has version 9.0.0."));
}

TEST(UpdateCommand, AnErrorAfterTheStopIsReportedWhenFirmwareWasOnItsWay)
{
    Update update;
    update.interrupt(3, status(state_failed, 1, "MAIN.BIN", 0, 0, 0, -6));
    update.worker.outcomes = {{1, -6, VersionReason::applies, true, false, 2000, 4000}};
    EXPECT_EQ(update.json(), 16);
    EXPECT_THAT(update.out, HasSubstr(R"("name":"connection-lost")"));
}

TEST(UpdateCommand, AnErrorAfterTheStopIsNoMatterWhenNothingWasSent)
{
    Update update;
    update.interrupt(0, status(state_failed, 0, "", 0, 0, 0, -6));
    update.worker.outcomes.clear();
    EXPECT_EQ(update.json(), 130);
}

TEST(UpdateCommand, AStopThatCameTooLateIsNoStop)
{
    Update update;
    update.interrupt(7, kWholeRun.back());
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(update.out, HasSubstr(R"("name":"updated")"));
}

TEST(UpdateCommand, ASignalAfterTheEndHasNoEffect)
{
    Update update;
    update.interrupt(8, kWholeRun.back());
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(update.out, testing::Not(HasSubstr("stopping")));
}

TEST(UpdateCommand, GoesOnWhenItsOutputIsNotRead)
{
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    for (const int descriptor : {full, ends[1], 9999}) {
        Update update;
        update.standardOutput = descriptor;
        EXPECT_EQ(update.json(), 0);
        EXPECT_EQ(update.worker.stops, 1);
        EXPECT_EQ(update.text(), 0);
    }
    close(full);
    close(ends[1]);
}

TEST(UpdateCommand, ShowsNoControlCharactersOfAPrinter)
{
    Update update;
    update.worker.records[3] = status(state_sending, 1, "\x1b[2J\x9b", 2000, 4000);
    EXPECT_EQ(update.text(), 0);
    EXPECT_THAT(update.err, HasSubstr("(\\x1b[2J\\x9b)"));
    EXPECT_EQ(update.err.find('\x1b'), std::string::npos);
    update.worker.looks = 0;
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(update.out, HasSubstr(R"("firmware_name":"\\x1b[2J\\x9b")"));
}

TEST(UpdateCommand, AProgressThatIsNoNumberIsUnknown)
{
    Update update;
    update.worker.records[5] = status(state_writing, 1, "MAIN.BIN", 5, 0, 1);
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(update.out, HasSubstr(R"("bytes_done":5,"bytes_total":0,"progress":null)"));
}

TEST(UpdateCommand, IsRefusedWhileAnotherUpdateOfThePrinterRunsHere)
{
    Update update;
    ScriptedLocks locks;
    locks.heldBy = 4711;
    EXPECT_EQ(update.json(), 13);
    EXPECT_THAT(update.out, HasSubstr(R"("name":"printer-busy","result_code":-3)"));
    EXPECT_THAT(update.out,
                HasSubstr("Another update of this printer is running here (process 4711)."));
    EXPECT_THAT(update.out, HasSubstr(R"("firmware_bytes_sent":false)"));
    EXPECT_EQ(update.worker.portNumber, 0); // there was no run
    EXPECT_THAT(locks.names, testing::ElementsAre("tcp 192.0.2.7 48350"));
}

TEST(UpdateCommand, WaitsForAnotherUpdateAsLongAsItMay)
{
    Update update;
    ScriptedLocks locks;
    locks.heldBy = 4711;
    locks.freeAfter = 3;
    EXPECT_EQ(update.with({"--lock-timeout", "60"}), 0);
    EXPECT_THAT(update.err, HasSubstr("Waiting: another update of this printer is running here"));
    EXPECT_EQ(locks.attempts, 4);
    EXPECT_EQ(locks.holding, 0); // given up after the run
}

TEST(UpdateCommand, WaitsNoLongerThanItMay)
{
    Update update;
    ScriptedLocks locks;
    locks.heldBy = 4711;
    locks.attemptTakes = 1000;
    EXPECT_EQ(update.with({"--lock-timeout", "3"}), 13);
    EXPECT_EQ(locks.names.size(), 3U);
}

TEST(UpdateCommand, GoesOnWhereThePrinterCannotBeLocked)
{
    Update update;
    ScriptedLocks locks;
    locks.canLock = false;
    EXPECT_EQ(update.text(), 0);
}

TEST(UpdateCommand, MentionsAnEarlierUpdateOfThePrinterThatWasCutOff)
{
    Update update;
    std::filesystem::create_directories(update.folder / "state/vymkit");
    const std::string begun = "program: vymkit-cli 1\nstarted: 2026-01-02 03:04:05 +0000\n";
    update.folder.write("state/vymkit/run-20260102T030405.000Z-7.log",
                        begun + "address: 192.0.2.7\n03:04:06: sending, firmware 1\n");
    update.folder.write("state/vymkit/run-20260103T030405.000Z-7.log",
                        begun + "address: 192.0.2.8\nended: 2026-01-03\n"); // another printer's
    EXPECT_EQ(update.json(), 0);
    EXPECT_THAT(update.out,
                HasSubstr("An earlier update of this printer was cut off (started "
                          "2026-01-02 03:04:05 +0000; its log has no end: "));
    EXPECT_EQ(update.text(), 0); // the run before has an end
    EXPECT_THAT(update.err, testing::Not(HasSubstr("cut off")));
}

TEST(UpdateCommand, NamesTheModelOfThePrinter)
{
    Update update;
    update.worker.printerModel = "Model \x1b 300";
    update.worker.records = {status(state_initial), status(state_failed, 0, "", 0, 0, 0, -7)};
    update.worker.outcomes = {};
    EXPECT_EQ(update.json(), 17);
    EXPECT_THAT(update.out, HasSubstr(R"("printer_model":"Model \\x1b 300")"));
    EXPECT_THAT(update.out, HasSubstr(R"(192.0.2.7 is the model Model \\x1b 300.)"));
}
