// The run as the window shows it, over a worker that is played by a script.
#include "tests/UI/Wizard.h"
#include "tests/support/ScriptedWorker.h"

#include <QProgressBar>
#include <QSessionManager>
#include <QTranslator>
#include <cmath>
#include <gmock/gmock.h>

namespace {

using ::testing::_;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Every text has a directive, so that a test sees which argument it was given.
class NumberedTexts : public QTranslator {
public:
    [[nodiscard]] QString translate(const char*, const char* key, const char*, int) const override
    {
        return QLatin1String(key) + QStringLiteral(" <%u>");
    }
    [[nodiscard]] bool isEmpty() const override { return false; }
};

class MainWindowControllerRun : public ::testing::Test {
protected:
    MainWindowControllerRun()
    {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
        qputenv("XDG_STATE_HOME", stateFolder.path().c_str());
    }
    std::string log()
    {
        std::string all;
        for (const auto& file : std::filesystem::recursive_directory_iterator(stateFolder.path())) {
            if (file.is_regular_file())
                all += readFile(file.path());
        }
        return all;
    }

    // Up to the question, which is answered with yes: the run has begun.
    void begin()
    {
        wizard.open().toPrinters();
        wizard.typeAddress({"127", "0", "0", "1"});
        wizard.press("_selDev1NextBtn");
        wizard.alerts.queueAnswer(alert::kDefault);
        wizard.controller->startUpdateAction();
    }
    void beginWithOneFirmware()
    {
        wizard.description({"MODELNAME Vymprint", "PLATFORMVERSION MACOS=0", "PORTNO 5001",
                            "VERSION MAIN=1 main.bin MAIN.BIN HEADER=1 DISPVER=1 DISPFIRM=Main"});
        begin();
    }
    void look(update_state state, std::uint32_t done = 0, std::uint32_t total = 0)
    {
        worker.record.m_updateState = state;
        worker.record.m_bytesDone = done;
        worker.record.m_bytesTotal = total;
        wizard.controller->updateStatusTimerFunc();
    }
    std::string line() { return wizard.text("_progressCmtTxt").toStdString(); }
    int bar() { return wizard.find<QProgressBar>("_updatePrg").value(); }
    // The message at the end; the first alert was the question.
    Alert message()
    {
        EXPECT_EQ(wizard.alerts.asked().size(), 2U);
        return wizard.alerts.asked().back();
    }

    TempFolder stateFolder;
    ScriptedWorker worker;
    Wizard wizard;
};

TEST_F(MainWindowControllerRun, BeginsWithTheProgressWindowInPlaceOfTheWizard)
{
    beginWithOneFirmware();
    EXPECT_FALSE(wizard.window().isVisible());
    EXPECT_TRUE(wizard.window("_updateWindow").isVisible());
    EXPECT_EQ(line(), "State_Connection");
    EXPECT_EQ(bar(), 0);
    EXPECT_TRUE(wizard.find<BusySign>("_progressAnimation").isAnimated());
    EXPECT_FALSE(wizard.find<QLabel>("_updateWdwWarningImgView").pixmap().isNull());
    EXPECT_FALSE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_THAT(worker.calls(), ElementsAre("create", "start none 127.0.0.1 5001", "polling 500"));
}

class MainWindowControllerRunIn : public MainWindowControllerRun,
                                  public ::testing::WithParamInterface<const char*> { };

TEST_P(MainWindowControllerRunIn, CutsNoTextOff)
{
    const Language table(GetParam());
    begin();
    expectNothingCut(wizard.window("_updateWindow"));
    look(state_writing, 1, 2);
    wizard.window("_updateWindow").close(); // refused, with the reason
    EXPECT_TRUE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    expectNothingCut(wizard.window("_updateWindow"));
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, MainWindowControllerRunIn, ::testing::ValuesIn(kLanguages));

TEST_F(MainWindowControllerRun, LooksAtTheWorkerOnceASecond)
{
    begin();
    const auto* timer = wizard.controller->findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 1000);
    worker.record.m_updateState = state_checked;
    EXPECT_TRUE(QTest::qWaitFor([this] { return line() != "State_Connection"; }, 3000));
}

TEST_F(MainWindowControllerRun, APrinterWithAQueueIsReachedByItsConnectableAddress)
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

TEST_F(MainWindowControllerRun, AnAddressThatIsTooLongForTheWorkerIsNotCut)
{
    const auto uri = "lpd://" + std::string(250, 'a') + '/';
    wizard.printers({{"office", uri.c_str()}}).open().toPrinters();
    wizard.press("_selDev1NextBtn");
    wizard.alerts.queueAnswer(alert::kDefault);
    wizard.controller->startUpdateAction();
    EXPECT_EQ(message().title, "Error_SystemTitle");
    EXPECT_THAT(worker.calls(), ElementsAre("create", "stop", "delete"));
}

struct StateRow {
    const char* why;
    update_state state;
    std::uint32_t done;
    std::uint32_t total;
    bool isWritingReported;
    const char* one; // the line with one firmware in the package; null where nothing changes
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

TEST_F(MainWindowControllerRun, EachStateHasItsLineAndItsProgress)
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

TEST_F(MainWindowControllerRun, WithSeveralFirmwareTheLineTellsWhichOneItIs)
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

TEST_F(MainWindowControllerRun, WithOneFirmwareALineHasNoArgument)
{
    beginWithOneFirmware();
    NumberedTexts texts;
    QCoreApplication::installTranslator(&texts);
    worker.record.m_firmwareNumber = 1;
    look(state_checked);
    EXPECT_EQ(line(), "State_CheckVersion <%u>");
}

struct ResultRow {
    std::int32_t code;
    const char* key; // of the title without "Title"
    const char* message;
    AlertStyle style;
};
const ResultRow kResults[] = {
    {1, "NormalEnd", "NormalEnd_ManualMes", AlertStyle::informational},
    {-11, "NoUpdateEnd", "NoUpdateEnd_ManualMes", AlertStyle::informational},
    {-1, "Error_DeviceError", "Error_DeviceErrorMes", AlertStyle::critical},
    {-2, "Error_ConnectError", "Error_ConnectErrorMes", AlertStyle::critical},
    {-3, "Error_DeviceBusy", "Error_DeviceBusyMes", AlertStyle::critical},
    {-4, "Error_Fax", "Error_FaxMes", AlertStyle::critical},
    {-6, "Error_PoweredOff", "Error_PoweredOffMes", AlertStyle::critical},
    {-7, "Error_ModelMismatch", "Error_ModelMismatchMes", AlertStyle::critical},
    {-8, "Error_FirmRead", "Error_FirmReadMes", AlertStyle::critical},
    {-9, "Error_System", "Error_SystemMes", AlertStyle::critical},
    {-12, "Error_Compatible", "Error_CompatibleMes", AlertStyle::critical},
    {0, "Error_Other", "Error_OtherMes", AlertStyle::critical},
    {-5, "Error_Other", "Error_OtherMes", AlertStyle::critical},
    {-10, "Error_Other", "Error_OtherMes", AlertStyle::critical},
    {2, "Error_Other", "Error_OtherMes", AlertStyle::critical},
    {-2147483647 - 1, "Error_Other", "Error_OtherMes", AlertStyle::critical},
};

TEST_F(MainWindowControllerRun, EachResultEndsTheProgramWithItsMessage)
{
    for (const auto& row : kResults) {
        SCOPED_TRACE(row.code);
        Wizard own;
        own.description({"MODELNAME V", "PLATFORMVERSION MACOS=0", "NEEDEXITOPERATION YES"}).open();
        own.controller->endUpdate(row.code);
        const auto& told = own.alerts.asked().back();
        EXPECT_EQ(told.title, std::string(row.key) + "Title");
        EXPECT_EQ(told.message, row.message);
        EXPECT_EQ(told.style, row.style);
        EXPECT_EQ(told.defaultButton, "OK");
        EXPECT_EQ(told.alternateButton, "");
        EXPECT_TRUE(own.controller->hasEnded());
        EXPECT_FALSE(own.window("_updateWindow").isVisible());
    }
}

TEST_F(MainWindowControllerRun, APrinterThatLeavesUpdateModeByItselfHasEndsOfItsOwn)
{
    for (const auto& [code, key] :
         {std::pair(1, "NormalEnd_AutoMes"), std::pair(-11, "NoUpdateEnd_AutoMes")}) {
        Wizard own;
        own.description({"MODELNAME V", "PLATFORMVERSION MACOS=0", "NEEDEXITOPERATION NO"}).open();
        own.controller->endUpdate(code);
        EXPECT_EQ(own.alerts.asked().back().message, key);
    }
}

TEST_F(MainWindowControllerRun, EndsAsTheRecordSays)
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

TEST_F(MainWindowControllerRun, WithoutAWorkerItEndsAtOnceAndOnce)
{
    worker.canBeCreated = false;
    begin();
    EXPECT_EQ(message().title, "Error_SystemTitle");
    EXPECT_EQ(message().message, "Error_SystemMes");
    EXPECT_THAT(worker.calls(), ElementsAre("create"));
    EXPECT_EQ(wizard.controller->findChild<QTimer*>(), nullptr);
    EXPECT_TRUE(wizard.controller->hasEnded());
}

TEST_F(MainWindowControllerRun, AWorkerThatCannotStartEndsItToo)
{
    worker.canStart = false;
    begin();
    EXPECT_EQ(message().title, "Error_SystemTitle");
    EXPECT_EQ(worker.calls().back(), "delete");
}

TEST_F(MainWindowControllerRun, TheEndStopsTheTimerThenTheWorkerThenAsks)
{
    begin();
    look(state_done);
    EXPECT_THAT(worker.calls(), ElementsAre("create", _, "polling 500", "stop", "delete"));
    const auto* timer = wizard.controller->findChild<QTimer*>();
    EXPECT_TRUE(timer == nullptr || !timer->isActive());
    EXPECT_EQ(message().title, "NoUpdateEndTitle");
    EXPECT_EQ(message().details, "");
}

TEST_F(MainWindowControllerRun, WhatWentWrongHasDetailsForWhoeverIsAskedForHelp)
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

TEST_F(MainWindowControllerRun, ARunLeavesALog)
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

TEST_F(MainWindowControllerRun, ALogThatCannotBeMadeDoesNotKeepARunFromEnding)
{
    qputenv("XDG_STATE_HOME", "/proc/no/such/place");
    begin();
    worker.record.m_result = -6;
    look(state_sending);
    EXPECT_EQ(message().title, "Error_PoweredOffTitle");
    EXPECT_EQ(message().details, "Details_Printer\nDetails_Package\nDetails_Result");
}

TEST_F(MainWindowControllerRun, AWorkerThatTakesItsTimeToStopDoesNotFreezeTheWindow)
{
    begin();
    worker.stopTakes = std::chrono::milliseconds(200);
    int moves = 0;
    QTimer other;
    QObject::connect(&other, &QTimer::timeout, [this, &moves] {
        ++moves;
        EXPECT_TRUE(wizard.window("_updateWindow").isVisible());
        EXPECT_EQ(wizard.alerts.asked().size(), 1U);
    });
    other.start(10);
    look(state_done);
    other.stop();
    EXPECT_GT(moves, 5);
    EXPECT_TRUE(wizard.controller->hasEnded());
}

TEST_F(MainWindowControllerRun, ClosingTheWindowIsRefusedWithTheReasonOnIt)
{
    begin();
    auto& window = wizard.window("_updateWindow");
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(wizard.text("_closeRefusedTxt"), "Update_CloseRefused");
    EXPECT_TRUE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_FALSE(window.close());
    EXPECT_EQ(wizard.alerts.asked().size(), 1U);
    EXPECT_FALSE(wizard.controller->hasEnded());
}

TEST_F(MainWindowControllerRun, ASignalIsRefusedLikeClosingAndNotedInTheLog)
{
    const EndingSignals endings;
    wizard.setup.endings = &endings;
    begin();
    const auto& reason = wizard.find<QLabel>("_closeRefusedTxt");
    raise(SIGTERM);
    EXPECT_TRUE(QTest::qWaitFor([&reason] { return reason.isVisible(); }));
    EXPECT_EQ(reason.text(), "Update_CloseRefused");
    EXPECT_THAT(log(), HasSubstr("note: signal 15 asked"));
    EXPECT_FALSE(wizard.controller->hasEnded());
    look(state_done);
    EXPECT_EQ(message().title, "NoUpdateEndTitle");
}

TEST_F(MainWindowControllerRun, TheEndOfTheSessionIsRefusedToo)
{
    begin();
    emit qGuiApp->commitDataRequest(*qGuiApp->findChild<QSessionManager*>());
    EXPECT_TRUE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_THAT(log(), HasSubstr("note: the end of the session asked"));
    EXPECT_FALSE(wizard.controller->hasEnded());
}

TEST_F(MainWindowControllerRun, EscapeDoesNothingDuringTheRun)
{
    begin();
    auto& window = wizard.window("_updateWindow");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_EQ(wizard.alerts.asked().size(), 1U);
}

TEST_F(MainWindowControllerRun, TheWindowIsWideEnoughForItsWidestLineFromTheStartOn)
{
    begin();
    const auto& progress = wizard.find<QLabel>("_progressCmtTxt");
    QTest::qWait(1);
    const auto metrics = progress.fontMetrics();
    for (const auto* key : {"State_Connection", "State_CheckVersion_Plural",
                            "State_PrepUpdate_Plural", "State_WriteUpdate_Plural", "State_Updated"})
        EXPECT_GE(progress.width(), metrics.horizontalAdvance(QLatin1String(key))) << key;
    const auto& attention = wizard.find<QLabel>("_attentionCmtTxt");
    EXPECT_GE(attention.height(), attention.heightForWidth(attention.width()));
}

TEST_F(MainWindowControllerRun, AControllerThatGoesInMidRunStopsItsWorker)
{
    begin();
    wizard.controller.reset();
    EXPECT_EQ(worker.calls().back(), "delete");
}

} // namespace
