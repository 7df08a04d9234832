#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes docs/faults.md: the tests of each class of fault at each stage of an update.

Usage: faults.py [--check]   --check only reports whether the page is up to date

The virtual printer's faults come from tests/system/faults_test.cpp, and their names decide their
cells; the other cells name their tests here. A test that no longer exists is an error.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs" / "faults.md"
STAGES = ["package", "connect", "enter", "identify", "transfer", "last block", "writing", "leave",
          "afterwards"]
# The place of a fault of the virtual printer: by the stage in its name, or by the name alone.
AT = {"connect": "connect", "enter": "enter", "get-file": "identify", "piece": "transfer",
      "last-block": "last block", "status": "writing", "exit": "leave"}
KINDS = {"link lost": ["close", "reset"],
         "peer silent or slow": ["stall", "silent", "drip", "split-body"],
         "hostile answer": ["garbage", "wrong-code", "short-reply", "split-reply", "oversized",
                            "length-lie", "status-unknown"],
         "refusal": ["status-0803", "status-0804"]}
ALONE = {"refuse-busy": ("refusal", "enter"), "refuse-fax": ("refusal", "enter"),
         "wrong-model": ("wrong printer or version", "identify"),
         "status-over-100": ("hostile answer", "writing")}  # all others: hostile answers, identify
SIMULATION = "SimulationGivesTheSameRunForTheSameSeed"
FAILING = "ProgramsSurviveFailingCalls"
CLOCK = "ProgramsDoNotHeedAClockThatJumps"
CUT = ["EachByte.MayBeTheLastThatTcpCarriesOutBeforeAReset",
       "EachByte.MayBeTheLastThatUsbCarriesBackBeforeThePlugIsPulled"]  # and their sisters
KILLED = "Killed.AtAnyStageIsMadeGoodByTheNextUpdate"

# Fault class -> stage -> tests; a text in brackets says why there is no test.
CELLS = {
    "link lost": {
        "package": "(no link yet)", "connect": "TcpConnect.FailsWhereNothingListensAndLeavesNoOpenSocket",
        "enter": CUT, "identify": CUT, "last block": CUT, "writing": CUT, "leave": CUT,
        "transfer": [*CUT, "UpdateCommand.SaysThatTheConnectionBrokeInTheMiddleOfAFirmware"],
        "afterwards": "PrinterThatIsPulledOutAndComesBack.IsUpdatedByTheNextRunAtOnce"},
    "short calls, interrupted calls": {
        "package": "(reads are repeated until they are whole: no signal interrupts a disk)",
        "connect": SIMULATION, "enter": SIMULATION, "identify": SIMULATION,
        "transfer": [SIMULATION, "TcpExchange.IsNotCutShortBySignals",
                     "LateReply.IsReadWholeOrNotAtAllHoweverOftenCallsAreInterrupted",
                     "TcpExchange.SendsAPacketLargerThanTheSystemBuffers"],
        "last block": SIMULATION, "writing": SIMULATION, "leave": SIMULATION,
        "afterwards": "(nothing is called any more)"},
    "memory and calls that fail": {
        "package": ["Container.IsTriedAgainAfterMemoryRanOut", FAILING],
        "connect": [FAILING, "Manager.GivesAHandleOrNothingHoweverLittleMemoryThereIs",
                    "PrintersWithoutMemory.AreListedOrTheResultSaysWhyNot"],
        "enter": [FAILING, SIMULATION, "NoPrinterStaysInDownloadModeWithoutMemory"],
        "identify": [FAILING, SIMULATION],
        "transfer": [FAILING, SIMULATION, "WindowRunWithoutMemory.LeavesThePrinterInOrder",
                     "WindowRunWithAFailingCall.EndsWithAMessageThatIsTrue"],
        "last block": [FAILING, SIMULATION],
        "writing": [FAILING, SIMULATION], "leave": [FAILING, SIMULATION], "afterwards": FAILING},
    "printer restarts": {
        "package": "(no printer yet)", "connect": SIMULATION, "enter": SIMULATION,
        "identify": SIMULATION, "transfer": SIMULATION, "last block": SIMULATION,
        "writing": SIMULATION, "leave": SIMULATION,
        "afterwards": ["PrinterThatIsPulledOutAndComesBack.IsUpdatedByTheNextRunAtOnce",
                       "RestartingPrinter.GetsItsVerdictInJson"]},
    "host killed": {
        "package": "(nothing has begun)", "connect": "(nothing has begun)",
        "enter": KILLED, "identify": KILLED, "last block": KILLED, "writing": KILLED,
        "leave": KILLED,
        "transfer": ["Update.LeavesALogThatSaysHowFarItCameWhenItIsKilled",
                     "UpdateCommand.MentionsAnEarlierUpdateOfThePrinterThatWasCutOff",
                     "UpdateThatIsKilled.LeavesAPrinterThatTheNextOneUpdates"],
        "afterwards": "RunLog.HasEachLineOnDiskAtOnce"},
    "hostile answer": {
        "package": "(no printer is queried)", "connect": "(no answer belongs to it)",
        "transfer": "PrinterThatOffersHugePackets.GetsPiecesThatFitIntoMemory",
        "identify": ["PrinterThatSendsControlCharacters.ReachesNeitherTerminalNorJson",
                     "FileAssembly.RefusesBlocksWithoutDataAndBlocksThatNeverEnd",
                     "vymProtocolCheck.SurvivesVersionsOfThousandsOfCharacters"],
        "afterwards": "UpdateCommand.ShowsNoControlCharactersOfAPrinter"},
    "peer silent or slow": {
        "package": "(a file, not a peer)",
        "connect": "TcpConnect.WaitsTenSecondsAtMostForAPrinterThatDoesNotAnswer",
        "identify": "vymProtocolCheck.GivesUpOnAFileThatTakesTooLong",
        "transfer": ["PrinterThatStopsReading.DelaysALargePacketNoLongerThanItsTimeOut",
                     "TcpPort.StopsWritingInTimeToAPeerThatReadsTooSlowly", SIMULATION],
        "writing": ["Update.WaitsForAPrinterThatWritesSlowly",
                    "Stop.ByDeadlineEndsTheWaitForAPrinterThatNeverFinishesWriting"],
        "afterwards": "(the printer is left alone)"},
    "malformed package": {
        "package": ["Container.CutAnywhereIsClosed", "Container.IsSafeWithAnyTableOffset",
                    "Container.IsSafeWithAnyEntryCount", "Container.IsSafeWithAnyDataSize",
                    "Container.OfMoreThanTwoGigabytesIsReadToItsEnd"],
        "transfer": "vymProtocolSend.RefusesAnImageThatThePackageDoesNotHold",
        "connect": "(refused before)", "enter": "(refused before)", "identify": "(refused before)",
        "last block": "(refused before)", "writing": "(refused before)",
        "leave": "(refused before)", "afterwards": "(refused before)"},
    "disk full, package changed": {
        "package": ["Container.KeepsDeliveringTheFileThatItOpened",
                    "Container.ReportsAReadErrorWithNoBytes"],
        "connect": "(nothing is read or written)",
        "enter": "UpdateCommand.GoesOnWithoutALog",
        "identify": "RunLog.LetsARunGoOnWhereTheFileMayNotGrow",
        "transfer": ["FileSizeLimit.EndsTheLogAndNotTheTransfer",
                     "vymProtocolSend.EndsWhenThePackageIsCutWhileItIsBeingSent",
                     "Seal.KeepsThePieceThatChangedFromBeingRead",
                     "Container.NoticesThatItWasCutWhileItWasOpen"],
        "last block": ["SealedUpdate.EndsBeforeTheLastBlockWhereThePackageIsWrittenOver",
                       "PackageThatIsWrittenOver.EndsTheUpdateBeforeTheLastBlock"],
        "writing": "RunLog.LetsARunGoOnWhereTheFileMayNotGrow",
        "leave": "(nothing is read)", "afterwards": "LogFolder.ThatCannotBeUsedIsReportedAsAProblem"},
    "stop, signals, lost output": {
        "package": ["LargePackageThatIsRead.IsLeftAtOnceOnCtrlC",
                    "LargePackages.AreReadNoLongerThanTheTimeLimit"],
        "connect": "SystemPrinters.CtrlCEndsTheWaitForASilentServerAtOnce",
        "enter": ["Stop.BeforeTheFirstFirmwareSendsNothing",
                  "Stop.BeforeTheFirstFirmwareDoesNotWaitForASilentPrinter",
                  "Stop.WhileACheckWaitsLeavesDownloadMode"],
        "identify": "UpdateCommand.ASignalBeforeTheFirstByteStopsTheRun",
        "transfer": ["UpdateCommand.ASignalAmidATransferLetsItEndAndSendsAPersonToThePrinter",
                     "UpdateThatIsStopped.GivesTheInterfaceBack"],
        "last block": SIMULATION,
        "writing": "Stop.WhileThePrinterWritesStillSendsTheRestAndAsksForAPersonToLook",
        "leave": "UpdateCommand.ASignalAfterTheEndHasNoEffect",
        "afterwards": "UpdateCommand.GoesOnWhenItsOutputIsNotRead"},
    "clock jumps, suspend": {
        "package": "(no clock is read)",
        "connect": CLOCK, "enter": CLOCK, "identify": CLOCK, "last block": CLOCK, "leave": CLOCK,
        "transfer": ["LogindInhibitor.HoldsEverythingWhileItLives", CLOCK],
        "writing": "MonotonicWait.TakesItsTimeWhereTheWallClockIsSetBack",
        "afterwards": "LogFolder.KeepsTheNewLogWhereTheClockWasSetBack"},
    "two updaters": {
        "package": "(read-only)", "enter": ["Update.LeavesASecondUpdaterOutside",
                                          "SocketLocks.InAThousandRacesOneWritesAtATime",
                                          "Stop.ASecondUpdateOfThePrinterIsRefusedUntilTheFirstHasEnded"],
        "connect": "BusyPrinter.IsGivenUpAfterFiveSecondsAndFoundWhenFreeAgain",
        "identify": "(the second never comes so far)", "transfer": "(the second never comes so far)",
        "last block": "(the second never comes so far)", "writing": "(the second never comes so far)",
        "leave": "(the second never comes so far)", "afterwards": "(the second never comes so far)"},
    "wrong printer or version": {
        "package": "(decided by the printer)", "connect": "(decided by the printer)",
        "enter": "(decided by the printer)",
        "identify": ["Update.RefusesAPrinterThatIsTooOldForIt",
                     "Update.ClaimsNoUpdateForVersionsOfAnotherSeries",
                     "Update.EndsWithNothingToUpdateWhenThePrinterIsUpToDate"],
        "transfer": "(refused before)", "last block": "(refused before)",
        "writing": "(refused before)", "leave": "(refused before)", "afterwards": "(refused before)"},
    "USB bus": {
        "package": "(no bus yet)",
        "connect": ["OrdinaryUser.LearnsThatAPrinterIsConnectedButMayNotBeOpened",
                    "Printers.AreListedWithTheProgramThatPrints",
                    "Printers.AreListedWithTheProgramThatHoldsTheInterface",
                    "Printers.AreNotUpdatedUnderAPrintJob",
                    "UsbConnect.WaitsForABusyPrinter"],
        "enter": "BusFault.EndsWithItsCodeLeavesNothingClaimedAndASecondUpdateWorks",
        "identify": "AnswerOfWholePackets.IsReadToItsEnd",
        "transfer": ["UsbExchange.FailsWhereThePrinterIsLostInMidTransfer",
                     "UsbRead.IsNotOverrunByALengthThatAPrinterClaims"],
        "last block": "UsbExchange.AwaitsTheReplyToTheClosingPackets",
        "writing": "UsbUpdate.WaitsForAPrinterThatWritesSlowly",
        "leave": "UsbConnect.AbortsTheOutstandingReadAndForgetsItsBytesWhenItDisconnects",
        "afterwards": "WholeUpdate.BringsEveryByteToThePrinterAndGivesItBackToTheKernel"},
    "refusal": {
        "package": "(no printer yet)", "connect": "(no answer belongs to it)",
        "identify": "(a file is given or not)", "leave": "(its answer is not looked at)",
        "transfer": "vymProtocolAnswers.TreatsALateRefusalAsARefusal",
        "last block": "LateAnswer.DoesNotHideARefusalOfAPrinterThatReportsNoStatus",
        "afterwards": "(the printer is left alone)"},
    "honest but slow": {
        "package": "(a file, not a peer)", "connect": "(no answer belongs to it)",
        "enter": SIMULATION, "identify": "vymProtocolCheck.GivesUpOnAFileThatTakesTooLong",
        "transfer": ["SlowPrinter.GetsEveryByte", "SlowRun.IsHeardOutForEveryFirmwareOfARun",
                     "vymProtocolAnswers.WaitsAsLongAsThePrinterAcceptsBytes"],
        "last block": ["vymProtocolAnswers.WaitsForASlowPrinterAsLongAsItGoesOnAnswering",
                       "AnswerAccount.WaitsTwiceAsLongAsThePrinterItselfTookForItsSlowestAnswer"],
        "writing": "Update.WaitsForAPrinterThatWritesSlowly",
        "leave": "vymProtocolAnswers.AreHeardOutBeforeThePrinterIsLeft",
        "afterwards": "(the printer is left alone)"},
    "answers early, doubled, queued": {
        "package": "(no printer yet)", "connect": "(no answer belongs to it)", "enter": SIMULATION,
        "identify": "vymProtocolAnswers.TreatsNoReplyThatCameBeforeARequestAsItsAnswer",
        "transfer": "AnswerAccount.TrustsNoCountOfAPrinterThatAnswersTooOften",
        "last block": "vymProtocolAnswers.CountsNoAnswerThatCameBeforeTheLastBlockHadArrived",
        "writing": "vymProtocolAnswers.UsesTheNewestOfSeveralStatusReplies",
        "leave": "(its answer is not looked at)", "afterwards": "(the printer is left alone)"},
    "success without proof": {
        "package": "(nothing is claimed)", "connect": "(nothing is claimed)",
        "enter": "(nothing is claimed)", "identify": "vymThreadTest.CallsNothingConfirmedThatWasNeverSent",
        "transfer": "TruthOracleTest.CatchesSuccessWithoutEveryByte",
        "last block": ["vymProtocolSend.NeedsAnAnswerToTheLastBlock",
                       "TruthOracleTest.CatchesSuccessOnAnEarlierPiecesAnswer"],
        "writing": "TruthOracleTest.CatchesConfirmedWithoutTheReportOfThePrinter",
        "leave": "TcpLink.LeavesSoThatThePeerStillReadsEverything",
        "afterwards": "UpdateCommand.ClaimsNoUpdateWhenNothingWasSent"},
}

INTRO = """# Faults and their tests

Which class of fault is held by which test, at which stage of an update. Made by `tests/faults.py` out of
the names of the tests: a test that is renamed or removed is an error until this page follows. A fault of
the virtual printer (`close@piece:1`) is a row of `tests/system/faults_test.cpp`; names without a point are
tests of whole programs. The simulation draws its faults from seeds, and so has most of them at every stage.
A text in italics says why there is nothing to test; **open** means that a test is missing.

Two limits are known. The window's toolkit survives a lack of memory at few places: the wizard finishes the
update and leaves the printer before it ends, but then only the log of the run says how. And a slow printer
without the status query that loses its power without a sign after very few answers can look like one that
never gives more: see [Which answer counts](protocol.md#which-answer-counts).
"""


def names_only(text):
    return re.sub(r"`\w+\.", "`", text)


def all_tests():
    """The name of each test -> the tests of that name, with their suites."""
    names = set()
    for folder in ("tests",):
        for path in (ROOT / folder).rglob("*.cpp"):
            text = path.read_text(encoding="utf-8")
            names |= {f"{suite}.{name}" for suite, name in
                      re.findall(r"\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\s*\)", text)}
        for path in (ROOT / folder).rglob("CMakeLists.txt"):
            text = path.read_text(encoding="utf-8")
            names |= set(re.findall(r"add_test\(NAME (\w+)", text))
            names |= set(re.findall(r"add_failing_test\((\w+)", text))
    found = {}
    for name in sorted(names):
        found.setdefault(name.split(".")[-1], []).append(name)
    return found


def printer_faults():
    text = (ROOT / "tests/system/faults_test.cpp").read_text(encoding="utf-8")
    rows = text[text.index("kFaults[]"):text.index("INSTANTIATE_TEST_SUITE_P")]
    return re.findall(r'^\s*\{"([^"]+)"', rows, re.MULTILINE)


def place_of(fault):
    name, _, stage = fault.partition("@")
    if not stage:
        return ALONE.get(name.split("=")[0], ("hostile answer", "identify"))
    stage = AT[stage.split(":")[0]]
    return next(kind for kind, names in KINDS.items() if name in names), stage


def table():
    cells = {kind: {stage: [] for stage in STAGES} for kind in CELLS}
    for fault in printer_faults():
        kind, stage = place_of(fault)
        cells[kind][stage].append(f"`{fault}`")
    known, wrong = all_tests(), []
    for kind, stages in CELLS.items():
        for stage, tests in stages.items():
            for test in [tests] if isinstance(tests, str) else tests:
                if test.startswith("("):
                    cells[kind][stage].append(f"*{test[1:-1]}*")
                    continue
                found = known.get(test.split(".")[-1], [])
                if not found:
                    wrong.append(f"{kind}, {stage}: there is no test {test}")
                # A test may have moved to another suite of its name's own.
                shown = test if test in found or len(found) != 1 else found[0]
                cells[kind][stage].append(f"`{shown}`")
    return cells, wrong


def page(cells):
    lines = [INTRO]
    for kind, stages in cells.items():
        lines.append(f"## {kind[0].upper()}{kind[1:]}\n")
        lines.append("| stage | tests |\n|---|---|")
        for stage in STAGES:
            lines.append(f"| {stage} | {', '.join(stages[stage]) or '**open**'} |")
        lines.append("")
    return "\n".join(lines)


def main():
    cells, wrong = table()
    for line in wrong:
        print("faults:", line)
    text = page(cells)
    if "--check" in sys.argv:
        if not wrong and names_only(PAGE.read_text(encoding="utf-8")) != names_only(text):
            wrong.append("stale")
            print("faults: docs/faults.md is not what tests/faults.py writes: run it")
    else:
        PAGE.write_text(text, encoding="utf-8")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
