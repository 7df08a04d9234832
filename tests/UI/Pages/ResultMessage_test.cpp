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

} // namespace
