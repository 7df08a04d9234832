// SPDX-License-Identifier: MIT
#include "UI/Pages/Questions.h"

#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"

namespace {

Alert critical(const char* titleKey, const char* messageKey)
{
    Alert alert;
    alert.title = words::plain(titleKey);
    alert.message = words::plain(messageKey);
    alert.style = AlertStyle::critical;
    alert.defaultButton = words::plain(textkey::kOk);
    return alert;
}

// A yes cannot be undone, so the Return key says no.
Alert question(const char* titleKey, const char* messageKey)
{
    auto alert = critical(titleKey, messageKey);
    alert.defaultButton = words::plain(textkey::kYes);
    alert.alternateButton = words::plain(textkey::kNo);
    alert.returnKey = AlertReturn::pressesAlternate;
    return alert;
}

} // namespace

Alert startQuestion(bool allowsOlderVersions, const std::string& cutOffAt)
{
    auto alert = allowsOlderVersions
        ? question(textkey::kConfirmationVerDownTitle, textkey::kConfirmationVerDownDescription)
        : question(textkey::kConfirmationNormalTitle, textkey::kConfirmationNormalDescription);
    if (!cutOffAt.empty())
        alert.remarks = words::filled(textkey::kConfirmationCutOff, cutOffAt);
    return alert;
}

Alert cancelQuestion()
{
    return question(textkey::kCancelMesTitle, textkey::kCancelMessage);
}

Alert addressMessage()
{
    return critical(textkey::kDeviceAlertInputAddressTitle, textkey::kDeviceAlertInputAddressMes);
}

Alert unsupportedSystemMessage(const std::string& packageProblem)
{
    auto alert = critical(textkey::kUnSupportOSTitle, textkey::kUnSupportOSMes);
    if (!packageProblem.empty())
        alert.details = words::filled(textkey::kUnSupportOSPackage, packageProblem);
    return alert;
}
