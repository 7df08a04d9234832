// SPDX-License-Identifier: MIT
// The message at the end of a run.
#include "UI/Pages/ResultMessage.h"
#include "tests/UI/WizardRun.h"

namespace {

class ResultMessages : public RunInTheWizard { };

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

TEST_F(ResultMessages, EachResultEndsTheProgramWithItsMessage)
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

TEST_F(ResultMessages, APrinterThatLeavesUpdateModeByItselfHasItsOwnMessages)
{
    for (const auto& [code, key] :
         {std::pair(1, "NormalEnd_AutoMes"), std::pair(-11, "NoUpdateEnd_AutoMes")}) {
        Wizard own;
        own.description({"MODELNAME V", "PLATFORMVERSION MACOS=0", "NEEDEXITOPERATION NO"}).open();
        own.controller->endUpdate(code);
        EXPECT_EQ(own.alerts.asked().back().message, key);
    }
}

TEST_F(ResultMessages, OnlyTheAnswerNoMeansThatThePrinterLeavesUpdateModeByItself)
{
    for (const auto* answer : {"BOTH", "", "MAYBE"}) {
        Wizard own;
        own.description({"MODELNAME V", "PLATFORMVERSION MACOS=0",
                         std::string("NEEDEXITOPERATION ") + answer})
            .open();
        own.controller->endUpdate(1);
        EXPECT_EQ(own.alerts.asked().back().message, "NormalEnd_ManualMes") << answer;
    }
}

TEST_F(ResultMessages, SayWhatWasSentAndConfirmedAndOnlyWhatApplies)
{
    const SentFirmware confirmed{"Main", true, true};
    const SentFirmware sent{"Engine", true, false};
    const SentFirmware partly{"Boot", false, false};
    const struct {
        const char* why;
        int code;
        std::vector<SentFirmware> sent;
        const char* remarks;
        const char* advice;
    } rows[] = {
        {"all is well", 1, {confirmed}, "Result_Confirmed", ""},
        {"sent without a word from the printer", 1, {sent}, "Result_Sent", ""},
        {"nothing to do", -11, {}, "", ""},
        {"nothing went out", -6, {}, "Result_NothingSent", "Error_PoweredOffNext"},
        {"an error after all was confirmed",
         -12,
         {confirmed},
         "Result_Confirmed",
         "Error_CompatibleNext"},
        {"an error in the middle",
         -6,
         {confirmed, partly},
         "Result_Confirmed\nResult_Partly",
         "Error_BytesSent"},
        {"no word from the printer", -6, {sent}, "Result_Sent", "Error_BytesSent"},
    };
    for (const auto& row : rows) {
        ResultFacts facts;
        facts.sent = row.sent;
        const auto told = resultMessage(row.code, false, facts);
        EXPECT_EQ(told.remarks, row.remarks) << row.why;
        EXPECT_EQ(told.advice, row.advice) << row.why;
        const bool isInDoubt = std::string(row.remarks).find("Result_Sent") != std::string::npos
            || std::string(row.remarks).find("Result_Partly") != std::string::npos;
        EXPECT_EQ(told.queryButton, isInDoubt ? "Check_Button" : "") << row.why;
        EXPECT_EQ(told.detailsButton, "Details_Button") << row.why;
    }
}

TEST_F(ResultMessages, SayThatAnotherUpdateOfThePrinterIsRunning)
{
    ResultFacts facts;
    facts.heldBy = 0;
    auto told = resultMessage(-3, false, facts);
    EXPECT_EQ(told.title, "Error_DeviceBusyTitle");
    EXPECT_EQ(told.message, "Error_UpdateRunningMes");
    EXPECT_EQ(told.advice, "Error_UpdateRunningNext");
    EXPECT_EQ(told.remarks, "Result_NothingSent");
    EXPECT_EQ(told.details.find("Details_Process"), std::string::npos) << "it is unknown";
    facts.heldBy = 12;
    told = resultMessage(-3, false, facts);
    EXPECT_NE(told.details.find("Details_Process"), std::string::npos) << told.details;
}

TEST_F(ResultMessages, NameTheFirmwareThatWasSent)
{
    begin();
    NumberedTexts texts;
    QCoreApplication::installTranslator(&texts);
    tag_entryoutcome outcome{};
    outcome.m_number = 2;
    outcome.m_result = 1;
    outcome.m_bytesWentOut = true;
    outcome.m_confirmed = true;
    worker.outcomes = {outcome};
    worker.record.m_updatedCount = 1;
    look(state_done);
    EXPECT_EQ(message().remarks, "Result_Confirmed <Print engine (2/2)>");
}

TEST_F(ResultMessages, OfferAQueryOfThePrinterUntilAllIsWellOrTheUserHasEnough)
{
    const struct {
        const char* installed; // null: the printer does not answer
        const char* title;
        const char* button;
    } rows[] = {
        {nullptr, "Check_UnknownTitle", "Check_Button"},
        {"VP010100", "Check_DifferentTitle", "Check_Button"},
        {"vp010210", "Check_InstalledTitle", ""},
    };
    for (const auto& row : rows) {
        Wizard own;
        own.open().toPrinters();
        own.typeAddress({"127", "0", "0", "1"});
        own.press("_selDev1NextBtn");
        own.alerts.queueAnswer(alert::kDefault);
        own.controller->startUpdateAction();
        tag_entryoutcome outcome{};
        outcome.m_number = 1;
        outcome.m_result = 1;
        outcome.m_bytesWentOut = true;
        worker.outcomes = {outcome};
        worker.report = {};
        if (row.installed != nullptr) {
            worker.report.result = 1;
            worker.report.entries = {{1, "MAIN", "VP010210", row.installed, {}, true}};
        }
        own.alerts.queueAnswer(alert::kQuery);
        own.controller->endUpdate(1);
        ASSERT_EQ(own.alerts.asked().size(), 3U) << row.title;
        EXPECT_EQ(own.alerts.asked()[1].queryButton, "Check_Button");
        EXPECT_EQ(own.alerts.asked()[2].title, row.title);
        EXPECT_EQ(own.alerts.asked()[2].queryButton, row.button);
        EXPECT_TRUE(own.controller->hasEnded());
    }
}

// The window of the run goes before its message comes.
TEST_F(ResultMessages, StandAlone)
{
    class Looks : public QueuedAlerts {
    public:
        int run(const Alert& asked) override
        {
            if (wizard != nullptr && asked.alternateButton.empty())
                wasVisible = wizard->window("_updateWindow").isVisible();
            return QueuedAlerts::run(asked);
        }
        const Wizard* wizard = nullptr;
        bool wasVisible = true;
    } looks;
    looks.queueAnswer(alert::kDefault);
    wizard.setup.alerts = &looks;
    looks.wizard = &wizard;
    begin();
    EXPECT_TRUE(wizard.window("_updateWindow").isVisible());
    look(state_done);
    EXPECT_FALSE(looks.wasVisible);
}

} // namespace
