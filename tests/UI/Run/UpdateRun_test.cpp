// SPDX-License-Identifier: MIT
#include "UI/Run/UpdateRun.h"
#include "VYM/ProtocolResult.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr std::uint8_t kPolled = 1;
constexpr std::uint8_t kNotPolled = 0;

tag_devinfo record(std::uint32_t state, std::uint32_t done, std::uint32_t total,
                   std::uint8_t checkState = kPolled)
{
    tag_devinfo info{};
    info.m_updateState = static_cast<update_state>(state);
    info.m_bytesDone = done;
    info.m_bytesTotal = total;
    info.m_result = result::kSuccess;
    info.m_firmwareNumber = 2;
    info.m_checkStateSupported = checkState;
    return info;
}

RunStep nothing()
{
    return {};
}

RunStep ended(int code)
{
    return {{}, {}, {}, code};
}

} // namespace

TEST(UpdateRun, OneFirmwareUsesTheSingularTextsWithoutANumber)
{
    const struct {
        const char* why;
        tag_devinfo info;
        RunStep step;
    } rows[] = {
        {"at the start", record(state_initial, 0, 0), nothing()},
        {"download mode entered", record(state_entered, 0, 0), nothing()},
        {"checked", record(state_checked, 7, 9), {"State_CheckVersion", {}, 0.0, {}}},
        {"half sent, polled", record(state_sending, 50, 100), {"State_PrepUpdate", {}, 25.0, {}}},
        {"all sent, polled", record(state_sending, 100, 100), nothing()},
        {"half sent",
         record(state_sending, 50, 100, kNotPolled),
         {"State_WriteUpdate", {}, 50.0, {}}},
        {"all sent", record(state_sending, 100, 100, kNotPolled), nothing()},
        {"more sent than there is", record(state_sending, 300, 100, kNotPolled), nothing()},
        {"the printer begins to write",
         record(state_writing, 0, 100),
         {"State_WriteUpdate", {}, 50.0, {}}},
        {"the printer writes", record(state_writing, 50, 100), {"State_WriteUpdate", {}, 75.0, {}}},
        {"the printer says more than all",
         record(state_writing, 300, 100),
         {"State_WriteUpdate", {}, 200.0, {}}},
        {"finished", record(state_finished, 100, 100), {"State_Updated", {}, 100.0, {}}},
        {"a state of a later time", record(8, 1, 2), nothing()},
        {"a state that is noise", record(0xFFFFFFFF, 1, 2), nothing()},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(runStep(row.info, 1), row.step);
    }
}

TEST(UpdateRun, SeveralFirmwareUseThePluralTextsWithTheNumber)
{
    const struct {
        const char* why;
        tag_devinfo info;
        RunStep step;
    } rows[] = {
        {"checked", record(state_checked, 0, 0), {"State_CheckVersion_Plural", 2U, 0.0, {}}},
        {"sending", record(state_sending, 1, 2), {"State_PrepUpdate_Plural", 2U, 25.0, {}}},
        {"sending is all",
         record(state_sending, 1, 2, kNotPolled),
         {"State_WriteUpdate_Plural", 2U, 50.0, {}}},
        {"writing", record(state_writing, 1, 2), {"State_WriteUpdate_Plural", 2U, 75.0, {}}},
        {"finished has no plural", record(state_finished, 2, 2), {"State_Updated", {}, 100.0, {}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(runStep(row.info, 2), row.step);
    }
}

TEST(UpdateRun, NoFirmwareOnTheListReadsAsOne)
{
    EXPECT_EQ(runStep(record(state_checked, 0, 0), 0).textKey, "State_CheckVersion");
}

TEST(UpdateRun, ATotalOf0ShowsNoProgressWhileSending)
{
    for (const auto polled : {kPolled, kNotPolled}) {
        EXPECT_EQ(runStep(record(state_sending, 0, 0, polled), 1), nothing());
        EXPECT_EQ(runStep(record(state_sending, 5, 0, polled), 1), nothing());
    }
}

TEST(UpdateRun, ATotalOf0IsUsedUnchangedWhileWriting)
{
    const auto noNumber = runStep(record(state_writing, 0, 0), 1);
    EXPECT_EQ(noNumber.textKey, "State_WriteUpdate");
    EXPECT_TRUE(std::isnan(noNumber.progress.value()));
    EXPECT_EQ(runStep(record(state_writing, 5, 0), 1).progress,
              std::numeric_limits<double>::infinity());
}

TEST(UpdateRun, CountsOfFourGigabytesKeepTheirProgress)
{
    EXPECT_DOUBLE_EQ(
        runStep(record(state_sending, 0x80000000, 0xFFFFFFFF, kNotPolled), 1).progress.value(),
        0x80000000 * 100.0 / 0xFFFFFFFF);
}

TEST(UpdateRun, EndsWithTheCodeThatTheRecordCallsFor)
{
    const struct {
        const char* why;
        std::uint32_t state;
        int result;
        std::uint32_t updated;
        int code;
    } rows[] = {
        {"all handled, one updated", state_done, 1, 1, 1},
        {"the last one skipped, an earlier one updated", state_done, -11, 1, 1},
        {"all handled, none updated", state_done, 1, 0, -11},
        {"all skipped", state_done, -11, 0, -11},
        {"failed without a code", state_failed, 1, 0, -9},
        {"failed with a skip's code", state_failed, -11, 1, -9},
        {"failed", state_failed, -6, 1, -6},
        {"an error in any state", state_sending, -2, 0, -2},
        {"an error at the end", state_done, -12, 1, -12},
        {"a result of 0 is an error too", state_checked, 0, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        auto info = record(row.state, 1, 2);
        info.m_result = row.result;
        info.m_updatedCount = row.updated;
        EXPECT_EQ(runStep(info, 1), ended(row.code));
    }
}

TEST(UpdateRun, ASkippedFirmwareDoesNotEndTheRun)
{
    auto info = record(state_checked, 0, 0);
    info.m_result = result::kNotApplicable;
    EXPECT_EQ(runStep(info, 1).textKey, "State_CheckVersion");
}

TEST(UpdateRun, ARecordIsTheSameWhenEveryFieldIs)
{
    const auto info = record(state_sending, 1, 2);
    auto other = info;
    other.m_firmwareName[20] = 'x'; // noise after the NUL
    EXPECT_TRUE(isSameRecord(info, other));
    void (*const changes[])(tag_devinfo&) = {
        [](tag_devinfo& each) { each.m_updateState = state_writing; },
        [](tag_devinfo& each) { each.m_firmwareName[0] = 'x'; },
        [](tag_devinfo& each) { each.m_bytesDone = 9; },
        [](tag_devinfo& each) { each.m_bytesTotal = 9; },
        [](tag_devinfo& each) { each.m_result = -1; },
        [](tag_devinfo& each) { each.m_firmwareNumber = 9; },
        [](tag_devinfo& each) { each.m_updatedCount = 9; },
        [](tag_devinfo& each) { each.m_checkStateSupported = 0; },
    };
    for (const auto change : changes) {
        other = info;
        change(other);
        EXPECT_FALSE(isSameRecord(info, other));
    }
}

TEST(UpdateRun, EveryResultHasItsTextsItsNameAndANextStep)
{
    const struct {
        int code;
        const char* title;
        const char* message;
        const char* name;
        const char* nextUntouched;
        const char* nextTouched;
    } rows[] = {
        {1, "NormalEndTitle", "NormalEnd_ManualMes", "updated", "none", "none"},
        {-11, "NoUpdateEndTitle", "NoUpdateEnd_ManualMes", "nothing-to-update", "none", "none"},
        {-1, "Error_DeviceErrorTitle", "Error_DeviceErrorMes", "device-error", "retry",
         "check-printer"},
        {-2, "Error_ConnectErrorTitle", "Error_ConnectErrorMes", "data-damaged", "retry",
         "check-printer"},
        {-3, "Error_DeviceBusyTitle", "Error_DeviceBusyMes", "printer-busy", "retry",
         "check-printer"},
        {-4, "Error_FaxTitle", "Error_FaxMes", "fax-in-use", "retry", "check-printer"},
        {-5, "Error_OtherTitle", "Error_OtherMes", "bad-reply", "retry", "check-printer"},
        {-6, "Error_PoweredOffTitle", "Error_PoweredOffMes", "connection-lost", "retry",
         "check-printer"},
        {-7, "Error_ModelMismatchTitle", "Error_ModelMismatchMes", "other-model",
         "choose-other-package", "check-printer"},
        {-8, "Error_FirmReadTitle", "Error_FirmReadMes", "firmware-unreadable",
         "choose-other-package", "check-printer"},
        {-9, "Error_SystemTitle", "Error_SystemMes", "system-error", "retry", "check-printer"},
        {-10, "Error_OtherTitle", "Error_OtherMes", "other-error", "retry", "check-printer"},
        {-12, "Error_CompatibleTitle", "Error_CompatibleMes", "too-old", "choose-other-package",
         "check-printer"},
        {0, "Error_OtherTitle", "Error_OtherMes", "other-error", "retry", "check-printer"},
        {-99, "Error_OtherTitle", "Error_OtherMes", "other-error", "retry", "check-printer"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code);
        const bool isError = row.code != 1 && row.code != -11;
        EXPECT_EQ(resultText(row.code, false), (ResultText{row.title, row.message, isError}));
        EXPECT_EQ(resultName(row.code), row.name);
        EXPECT_EQ(nextStepName(nextStep(row.code, false)), row.nextUntouched);
        EXPECT_EQ(nextStepName(nextStep(row.code, true)), row.nextTouched);
    }
}

TEST(UpdateRun, OnlyTheTwoPlainEndsHaveAnAutomaticText)
{
    EXPECT_EQ(resultText(1, true).messageKey, "NormalEnd_AutoMes");
    EXPECT_EQ(resultText(-11, true).messageKey, "NoUpdateEnd_AutoMes");
    EXPECT_EQ(resultText(-6, true), resultText(-6, false));
}

TEST(WithAgreeingName, ShowsTheFirmwareThatIsNamed)
{
    const std::string longName(32, 'L'); // the record has no room for it
    const std::vector<std::string> names = {"A", "B", "A", longName};
    const struct {
        const char* why;
        std::uint32_t number;
        const char* name;
        std::uint32_t shownNumber;
        const char* shownName;
    } rows[] = {
        {"before the first", 0, "", 0, ""},
        {"not named yet", 1, "", 1, ""},
        {"both of one", 2, "B", 2, "B"},
        {"the name comes later", 2, "A", 1, "A"},
        {"of two with this name the nearest", 3, "A", 3, "A"},
        {"a name that is too long comes later", 4, "A", 3, "A"},
        {"a name that is too long", 4, longName.c_str(), 4, ""},
        {"a name that the package does not have", 2, "X", 2, "X"},
        {"a number that the package does not have", 9, "A", 9, "A"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        tag_devinfo info{};
        info.m_firmwareNumber = row.number;
        storeFirmwareName(info, row.name);
        const auto shown = withAgreeingName(info, names);
        EXPECT_EQ(shown.m_firmwareNumber, row.shownNumber);
        EXPECT_EQ(firmwareNameOf(shown), row.shownName);
    }
}
