// SPDX-License-Identifier: MIT
#include "UI/Run/UpdateRun.h"

#include "UI/Text/PlainText.h"
#include "UI/Text/TextKeys.h"
#include "VYM/ProtocolResult.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <tuple>

namespace {

// If the printer reports its writing, sending is the first half of the bar, writing the second.
constexpr double kHalf = 0.5;
constexpr double kSecondHalf = 50.0;
constexpr double kFull = 100.0;

struct StageKey {
    std::string_view one;
    std::string_view several;
};
constexpr StageKey kCheckVersion = {textkey::kStateCheckVersion, textkey::kStateCheckVersionPlural};
constexpr StageKey kPrepUpdate = {textkey::kStatePrepUpdate, textkey::kStatePrepUpdatePlural};
constexpr StageKey kWriteUpdate = {textkey::kStateWriteUpdate, textkey::kStateWriteUpdatePlural};

struct ResultRow {
    int code;
    std::string_view name;
    std::string_view titleKey;
    std::string_view messageKey;
    std::string_view adviceKey;
    NextStep next; // if no firmware byte was sent
};
constexpr std::array<ResultRow, 12> kResults = {{
    {result::kSuccess, "updated", textkey::kNormalEndTitle, "", "", NextStep::none},
    {result::kNotApplicable, "nothing-to-update", textkey::kNoUpdateEndTitle, "", "",
     NextStep::none},
    {result::kDeviceError, "device-error", textkey::kErrorDeviceErrorTitle,
     textkey::kErrorDeviceErrorMes, textkey::kErrorDeviceErrorNext, NextStep::retry},
    {result::kDamaged, "data-damaged", textkey::kErrorConnectErrorTitle,
     textkey::kErrorConnectErrorMes, textkey::kErrorConnectErrorNext, NextStep::retry},
    {result::kBusy, "printer-busy", textkey::kErrorDeviceBusyTitle, textkey::kErrorDeviceBusyMes,
     textkey::kErrorDeviceBusyNext, NextStep::retry},
    {result::kFaxInUse, "fax-in-use", textkey::kErrorFaxTitle, textkey::kErrorFaxMes,
     textkey::kErrorFaxNext, NextStep::retry},
    {result::kBadReply, "bad-reply", textkey::kErrorOtherTitle, textkey::kErrorOtherMes,
     textkey::kErrorOtherNext, NextStep::retry},
    {result::kConnectionLost, "connection-lost", textkey::kErrorPoweredOffTitle,
     textkey::kErrorPoweredOffMes, textkey::kErrorPoweredOffNext, NextStep::retry},
    {result::kOtherModel, "other-model", textkey::kErrorModelMismatchTitle,
     textkey::kErrorModelMismatchMes, textkey::kErrorModelMismatchNext,
     NextStep::chooseOtherPackage},
    {result::kFirmwareUnreadable, "firmware-unreadable", textkey::kErrorFirmReadTitle,
     textkey::kErrorFirmReadMes, textkey::kErrorFirmReadNext, NextStep::chooseOtherPackage},
    {result::kSystem, "system-error", textkey::kErrorSystemTitle, textkey::kErrorSystemMes,
     textkey::kErrorSystemNext, NextStep::retry},
    {result::kTooOld, "too-old", textkey::kErrorCompatibleTitle, textkey::kErrorCompatibleMes,
     textkey::kErrorCompatibleNext, NextStep::chooseOtherPackage},
}};
constexpr ResultRow kOther = {result::kMissingArgument,  "other-error",
                              textkey::kErrorOtherTitle, textkey::kErrorOtherMes,
                              textkey::kErrorOtherNext,  NextStep::retry};

const ResultRow& rowOf(int code)
{
    const auto* row = std::find_if(kResults.begin(), kResults.end(),
                                   [code](const auto& each) { return each.code == code; });
    return row != kResults.end() ? *row : kOther;
}

bool goesOn(int code)
{
    return code == result::kSuccess || code == result::kNotApplicable;
}

RunStep shown(StageKey key, double progress, const tag_devinfo& info, unsigned long firmwareCount)
{
    if (firmwareCount > 1)
        return {key.several, info.m_firmwareNumber, progress, {}};
    return {key.one, {}, progress, {}};
}

// Uses "<" on purpose: a total of 0 gives infinity or no number, and shows nothing.
RunStep sendingStep(const tag_devinfo& info, double percent, unsigned long firmwareCount)
{
    if (info.m_checkStateSupported == 0)
        return percent < kFull ? shown(kWriteUpdate, percent, info, firmwareCount) : RunStep{};
    const auto half = percent * kHalf;
    return half < kSecondHalf ? shown(kPrepUpdate, half, info, firmwareCount) : RunStep{};
}

RunStep endedWith(int code)
{
    return {{}, {}, {}, code};
}

} // namespace

RunStep runStep(const tag_devinfo& info, unsigned long firmwareCount)
{
    if (!goesOn(info.m_result))
        return endedWith(info.m_result);
    const auto percent =
        static_cast<double>(info.m_bytesDone) * kFull / static_cast<double>(info.m_bytesTotal);
    switch (info.m_updateState) {
    case state_checked:
        return shown(kCheckVersion, 0, info, firmwareCount);
    case state_sending:
        return sendingStep(info, percent, firmwareCount);
    case state_writing:
        return shown(kWriteUpdate, percent * kHalf + kSecondHalf, info, firmwareCount);
    case state_finished:
        return {textkey::kStateUpdated, {}, kFull, {}};
    case state_done:
        return endedWith(info.m_updatedCount != 0 ? result::kSuccess : result::kNotApplicable);
    case state_failed:
        return endedWith(result::kSystem);
    default:
        return {};
    }
}

bool isSameRecord(const tag_devinfo& left, const tag_devinfo& right)
{
    const auto fields = [](const tag_devinfo& info) {
        return std::tie(info.m_updateState, info.m_bytesDone, info.m_bytesTotal, info.m_result,
                        info.m_firmwareNumber, info.m_updatedCount, info.m_checkStateSupported);
    };
    return fields(left) == fields(right)
        && std::strncmp(left.m_firmwareName, right.m_firmwareName, sizeof left.m_firmwareName) == 0;
}

std::string firmwareNameOf(const tag_devinfo& info)
{
    return plainText(
        {info.m_firmwareName, strnlen(info.m_firmwareName, sizeof info.m_firmwareName)});
}

tag_devinfo withAgreeingName(const tag_devinfo& info, const std::vector<std::string>& names)
{
    auto agreeing = info;
    const auto name = firmwareNameOf(info);
    const auto number = info.m_firmwareNumber;
    if (name.empty() || number < 1 || number > names.size() || names[number - 1] == name)
        return agreeing;
    // The nearest previous one, since two rows may have the same name.
    for (auto former = number - 1; former >= 1; --former) {
        if (names[former - 1] == name) {
            agreeing.m_firmwareNumber = former;
            break;
        }
    }
    return agreeing;
}

ResultText resultText(int code, bool automaticEnd)
{
    const auto& row = rowOf(code);
    if (code == result::kSuccess)
        return {row.titleKey,
                automaticEnd ? textkey::kNormalEndAutoMes : textkey::kNormalEndManualMes, false};
    if (code == result::kNotApplicable)
        return {row.titleKey,
                automaticEnd ? textkey::kNoUpdateEndAutoMes : textkey::kNoUpdateEndManualMes,
                false};
    return {row.titleKey, row.messageKey, true};
}

std::string_view adviceKey(int code, bool bytesWentOut)
{
    return nextStep(code, bytesWentOut) == NextStep::checkPrinter ? textkey::kErrorBytesSent
                                                                  : rowOf(code).adviceKey;
}

std::string_view resultName(int code)
{
    return rowOf(code).name;
}

const char* stateName(update_state state)
{
    constexpr std::array<const char*, 8> kNames = {"starting", "entered",  "checked", "sending",
                                                   "writing",  "finished", "done",    "failed"};
    return state < kNames.size() ? kNames.at(state) : "unknown";
}

const char* reasonName(VersionReason reason)
{
    constexpr std::array<const char*, 11> kNames = {
        "applies", "other-model",  "not-listed",         "not-newer",
        "too-old", "other-series", "unreadable-version", "undecided",
        "no-rule", "not-chosen",   "same-version"};
    return kNames.at(static_cast<std::size_t>(reason));
}

NextStep nextStep(int code, bool bytesWentOut)
{
    return bytesWentOut && !goesOn(code) ? NextStep::checkPrinter : rowOf(code).next;
}

std::string_view nextStepName(NextStep step)
{
    constexpr std::array<std::string_view, 4> kNames = {"none", "retry", "choose-other-package",
                                                        "check-printer"};
    return kNames.at(static_cast<std::size_t>(step));
}
