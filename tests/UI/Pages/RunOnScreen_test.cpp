// SPDX-License-Identifier: MIT
// The run in the window, with a scripted worker.
#include "tests/UI/WizardRun.h"
#include "tests/support/Await.h"
#include "tests/support/ScriptedLocks.h"

#include <QSessionManager>

namespace {

using ::testing::_;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class RunOnScreens : public RunInTheWizard { };

TEST_F(RunOnScreens, LooksAtTheWorkerOnceASecond)
{
    begin();
    const auto* timer = wizard.controller->findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 1000);
    worker.record.m_updateState = state_checked;
    EXPECT_TRUE(comesTrue([this] { return line() != "State_Connection"; }));
}

TEST_F(RunOnScreens, APrinterWithAQueueIsReachedByItsConnectableAddress)
{
    const struct {
        const char* why;
        const char* uri;
        const char* started;
    } rows[] = {
        {"the driver's own scheme", "net:printer.example",
         "start office-id lpd://printer.example/ 5001"},
        {"no slash at its end", "lpd://192.0.2.1", "start office-id lpd://192.0.2.1/ 5001"},
        {"complete as it is", "lpd://192.0.2.1/", "start office-id lpd://192.0.2.1/ 5001"},
        {"USB", "usb://Morix/V?serial=1", "start office-id usb://Morix/V?serial=1 5001"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Wizard own;
        own.description({"MODELNAME Vymprint", "PLATFORMVERSION MACOS=0", "PORTNO 5001"});
        own.printers({{"office", row.uri}}).open().toPrinters();
        own.press("_selDev1NextBtn");
        own.alerts.queueAnswer(alert::kDefault);
        own.controller->startUpdateAction();
        EXPECT_EQ(worker.calls().at(worker.calls().size() - 2), row.started);
    }
}

TEST_F(RunOnScreens, AnAddressThatIsTooLongForTheWorkerIsNotCut)
{
    const auto uri = "lpd://" + std::string(250, 'a') + '/';
    wizard.printers({{"office", uri.c_str()}}).open().toPrinters();
    wizard.press("_selDev1NextBtn");
    wizard.alerts.queueAnswer(alert::kDefault);
    wizard.controller->startUpdateAction();
    EXPECT_EQ(message().title, "Error_SystemTitle");
    EXPECT_THAT(worker.calls(), ElementsAre("create", "stop", "delete"));
}

// The lock is the one that command line and window share.
TEST_F(RunOnScreens, SaysThatAnotherProgramUpdatesThePrinter)
{
    ScriptedLocks locks;
    locks.heldBy = 12;
    begin();
    EXPECT_EQ(message().message, "Error_UpdateRunningMes");
    EXPECT_EQ(wizard.alerts.asked().front().remarks, "");
    EXPECT_THAT(worker.calls(), ElementsAre());
    EXPECT_THAT(log(), HasSubstr("another update of this printer is running here (process 12)"));
}

TEST_F(RunOnScreens, AsksWithAWordAboutAnEarlierUpdateThatWasCutOff)
{
    ScriptedLocks locks;
    std::filesystem::create_directories(stateFolder.path() / "vymkit");
    stateFolder.write("vymkit/run-20261121T033509.123Z-4711.log",
                      "started: 2026-11-21 04:35:09 +0100\naddress: 127.0.0.1\n");
    begin();
    EXPECT_EQ(wizard.alerts.asked().front().remarks, "Confirmation_CutOff");
    EXPECT_EQ(locks.holding, 1) << "the run's own";
    wizard.controller.reset();
    EXPECT_EQ(locks.holding, 0) << "given up with the window";
}

struct StateRow {
    const char* why;
    update_state state;
    std::uint32_t done;
    std::uint32_t total;
    bool isWritingReported;
    const char* one; // the line with one firmware in the package; null if it does not change
    int bar;
};
const StateRow kStates[] = {
    {"nothing yet", state_initial, 0, 0, false, nullptr, 7},
    {"download mode", state_entered, 0, 0, false, nullptr, 7},
    {"the version check", state_checked, 0, 0, false, "State_CheckVersion", 0},
    {"sending is the first half", state_sending, 50, 100, true, "State_PrepUpdate", 25},
    {"the end of the first half", state_sending, 100, 100, true, nullptr, 7},
    {"sending with no total", state_sending, 0, 0, true, nullptr, 7},
    {"sending is all", state_sending, 50, 100, false, "State_WriteUpdate", 50},
    {"all of it is sent", state_sending, 100, 100, false, nullptr, 7},
    {"sending all, with no total", state_sending, 0, 0, false, nullptr, 7},
    {"some sent of nothing", state_sending, 1, 0, false, nullptr, 7},
    {"writing begins", state_writing, 0, 100, true, "State_WriteUpdate", 50},
    {"writing is the second half", state_writing, 50, 100, true, "State_WriteUpdate", 75},
    {"more is written than there is", state_writing, 300, 100, true, "State_WriteUpdate", 100},
    {"writing with no total", state_writing, 0, 0, true, "State_WriteUpdate", 7},
    {"some written of nothing", state_writing, 1, 0, true, "State_WriteUpdate", 100},
    {"counts as large as they get", state_writing, 0xFFFFFFFF, 0xFFFFFFFF, true,
     "State_WriteUpdate", 100},
    {"one is finished", state_finished, 0, 0, true, "State_Updated", 100},
    {"a state that does not exist", static_cast<update_state>(8), 0, 0, false, nullptr, 7},
};

TEST_F(RunOnScreens, EachStateHasItsLineAndItsProgress)
{
    beginWithOneFirmware();
    for (const auto& row : kStates) {
        SCOPED_TRACE(row.why);
        wizard.find<QLabel>("_progressCmtTxt").setText("as before");
        wizard.find<QProgressBar>("_updatePrg").setValue(7);
        worker.record.m_checkStateSupported = row.isWritingReported;
        look(row.state, row.done, row.total);
        EXPECT_EQ(line(), row.one != nullptr ? row.one : "as before");
        EXPECT_EQ(bar(), row.bar);
    }
}

TEST_F(RunOnScreens, WithSeveralFirmwareTheLineHasTheNumber)
{
    begin(); // with two
    NumberedTexts texts;
    QCoreApplication::installTranslator(&texts);
    worker.record.m_firmwareNumber = 2;
    look(state_checked);
    EXPECT_EQ(line(), "State_CheckVersion_Plural <2>");
    look(state_sending, 1, 2);
    EXPECT_EQ(line(), "State_WriteUpdate_Plural <2>");
    worker.record.m_checkStateSupported = 1;
    look(state_sending, 1, 2);
    EXPECT_EQ(line(), "State_PrepUpdate_Plural <2>");
    look(state_writing, 1, 2);
    EXPECT_EQ(line(), "State_WriteUpdate_Plural <2>");
    look(state_finished);
    EXPECT_EQ(line(), "State_Updated <%u>"); // has no plural form, and no argument
}

TEST_F(RunOnScreens, WithSeveralFirmwareTheNameStandsBesideTheLine)
{
    begin(); // with two
    const auto name = [this] { return wizard.text("_firmwareNameTxt").trimmed().toStdString(); };
    EXPECT_TRUE(wizard.find("_firmwareNameTxt").isVisible());
    EXPECT_EQ(name(), "");
    worker.record.m_firmwareNumber = 1;
    look(state_checked);
    EXPECT_EQ(name(), "Main controller (1/2)");
    worker.record.m_firmwareNumber = 2;
    look(state_sending, 1, 2);
    EXPECT_EQ(name(), "Print engine (2/2)");
    worker.record.m_firmwareNumber = 3; // that the package does not have
    look(state_sending, 1, 2);
    EXPECT_EQ(name(), "");
}

TEST_F(RunOnScreens, WithOneFirmwareALineHasNoArgument)
{
    beginWithOneFirmware();
    NumberedTexts texts;
    QCoreApplication::installTranslator(&texts);
    worker.record.m_firmwareNumber = 1;
    look(state_checked);
    EXPECT_EQ(line(), "State_CheckVersion <%u>");
    EXPECT_FALSE(wizard.find("_firmwareNameTxt").isVisible());
}

TEST_F(RunOnScreens, EndsAsTheRecordSays)
{
    const struct {
        const char* why;
        std::int32_t result;
        update_state state;
        std::uint32_t updated;
        const char* title;
    } rows[] = {
        {"all handled, some written", 1, state_done, 1, "NormalEndTitle"},
        {"all handled, nothing written", 1, state_done, 0, "NoUpdateEndTitle"},
        {"nothing that suits this printer", -11, state_done, 0, "NoUpdateEndTitle"},
        {"the last one did not suit", -11, state_done, 1, "NormalEndTitle"},
        {"a result counts before the state", -6, state_done, 1, "Error_PoweredOffTitle"},
        {"a result in mid-run", -1, state_sending, 0, "Error_DeviceErrorTitle"},
        {"stopped with its own result", -3, state_failed, 0, "Error_DeviceBusyTitle"},
        {"stopped while all was well", 1, state_failed, 0, "Error_SystemTitle"},
        {"stopped while nothing suited", -11, state_failed, 1, "Error_SystemTitle"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Wizard own;
        own.open();
        worker.record.m_result = row.result;
        worker.record.m_updateState = row.state;
        worker.record.m_updatedCount = row.updated;
        own.toPrinters();
        own.typeAddress({"127", "0", "0", "1"});
        own.press("_selDev1NextBtn");
        own.alerts.queueAnswer(alert::kDefault);
        own.controller->startUpdateAction();
        own.controller->updateStatusTimerFunc();
        EXPECT_EQ(own.alerts.asked().back().title, row.title);
        EXPECT_TRUE(own.controller->hasEnded());
    }
}

TEST_F(RunOnScreens, WithoutAWorkerItEndsAtOnceAndOnce)
{
    worker.canBeCreated = false;
    begin();
    EXPECT_EQ(message().title, "Error_SystemTitle");
    EXPECT_EQ(message().message, "Error_SystemMes");
    EXPECT_THAT(worker.calls(), ElementsAre("create"));
    EXPECT_EQ(wizard.controller->findChild<QTimer*>(), nullptr);
    EXPECT_TRUE(wizard.controller->hasEnded());
}

TEST_F(RunOnScreens, AWorkerThatCannotStartEndsItToo)
{
    worker.canStart = false;
    begin();
    EXPECT_EQ(message().title, "Error_SystemTitle");
    EXPECT_EQ(worker.calls().back(), "delete");
}

TEST_F(RunOnScreens, TheEndStopsTheTimerThenTheWorkerThenAsks)
{
    begin();
    look(state_done);
    EXPECT_THAT(worker.calls(), ElementsAre("create", _, "polling 500", "stop", "delete"));
    const auto* timer = wizard.controller->findChild<QTimer*>();
    EXPECT_TRUE(timer == nullptr || !timer->isActive());
    EXPECT_EQ(message().title, "NoUpdateEndTitle");
}

TEST_F(RunOnScreens, FailuresHaveDetailsForTechnicalHelp)
{
    begin();
    NumberedTexts texts;
    QCoreApplication::installTranslator(&texts);
    worker.record.m_result = -6;
    look(state_sending);
    EXPECT_THAT(message().details, HasSubstr("Details_Printer <Vymprint 200, 127.0.0.1>"));
    EXPECT_THAT(message().details, HasSubstr("Details_Result <connection-lost>"));
    EXPECT_THAT(message().details, HasSubstr("Details_Log <" + stateFolder.path().string()));
}

TEST_F(RunOnScreens, ARunLeavesALog)
{
    begin();
    look(state_sending);
    worker.record.m_result = -6;
    look(state_sending);
    EXPECT_THAT(log(), HasSubstr("Vymprint 200"));
    EXPECT_THAT(log(), HasSubstr("127.0.0.1"));
    EXPECT_THAT(log(), HasSubstr("Main controller"));
    EXPECT_THAT(log(), HasSubstr("connection-lost"));
}

using RunOnScreensDeathTest = RunOnScreens;

// As the toolkit ends the process when it loses its display.
TEST_F(RunOnScreensDeathTest, IsFinishedWhenTheToolkitEndsTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            begin();
            look(state_sending);
            worker.atStop = [] { std::fputs("the worker was waited for\n", stderr); };
            std::exit(1);
        },
        ::testing::ExitedWithCode(1), "the worker was waited for");
}

TEST_F(RunOnScreens, ALogThatCannotBeMadeDoesNotKeepARunFromEnding)
{
    qputenv("XDG_STATE_HOME", "/proc/no/such/place");
    begin();
    worker.record.m_result = -6;
    look(state_sending);
    EXPECT_EQ(message().title, "Error_PoweredOffTitle");
    EXPECT_EQ(message().details, "Details_Printer\nDetails_Package\nDetails_Result");
}

TEST_F(RunOnScreens, AWorkerThatTakesItsTimeToStopDoesNotFreezeTheWindow)
{
    begin();
    std::atomic<int> moves = 0;
    worker.atStop = [&moves] { EXPECT_TRUE(becomesTrue([&moves] { return moves > 0; })); };
    QTimer other;
    QObject::connect(&other, &QTimer::timeout, [this, &moves] {
        ++moves;
        EXPECT_TRUE(wizard.window("_updateWindow").isVisible());
        EXPECT_EQ(wizard.alerts.asked().size(), 1U);
    });
    other.start(10);
    look(state_done);
    other.stop();
    EXPECT_GT(moves, 0);
    EXPECT_TRUE(wizard.controller->hasEnded());
}

TEST_F(RunOnScreens, ASignalIsRefusedLikeClosingAndNotedInTheLog)
{
    const EndingSignals endings;
    wizard.setup.endings = &endings;
    begin();
    const auto& reason = wizard.find<QLabel>("_closeRefusedTxt");
    raise(SIGTERM);
    EXPECT_TRUE(comesTrue([&reason] { return reason.isVisible(); }));
    EXPECT_EQ(reason.text(), "Update_CloseRefused");
    EXPECT_THAT(log(), HasSubstr("note: signal 15 asked"));
    EXPECT_FALSE(wizard.controller->hasEnded());
    look(state_done);
    EXPECT_EQ(message().title, "NoUpdateEndTitle");
}

TEST_F(RunOnScreens, TheEndOfTheSessionIsRefusedToo)
{
    begin();
    emit qGuiApp->commitDataRequest(*qGuiApp->findChild<QSessionManager*>());
    EXPECT_TRUE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_THAT(log(), HasSubstr("note: the end of the session asked"));
    EXPECT_FALSE(wizard.controller->hasEnded());
}

TEST_F(RunOnScreens, ADestroyedControllerStopsItsWorker)
{
    begin();
    wizard.controller.reset();
    EXPECT_EQ(worker.calls().back(), "delete");
}

} // namespace
