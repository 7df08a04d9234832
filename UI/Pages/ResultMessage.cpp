// SPDX-License-Identifier: MIT
#include "UI/Pages/ResultMessage.h"

#include "UI/Pages/Words.h"
#include "UI/Run/UpdateRun.h"
#include "UI/Text/PlainText.h"
#include "UI/Text/TextFormat.h"
#include "UI/Text/TextKeys.h"
#include "VYM/BundlePath.h"
#include "VYM/ProtocolResult.h"

#include <algorithm>

namespace {

std::string detailsOf(int code, const ResultFacts& facts)
{
    const auto name = plainText(facts.printer.printerName().value_or("")) + ", "
        + plainText(facts.printer.printerURI().value_or(""));
    const auto folder = plainText(facts.packageFolder, kBundlePathSize);
    auto details = words::filled(textkey::kDetailsPrinter, name) + '\n'
        + words::filled(textkey::kDetailsPackage, folder) + '\n'
        + words::filled(textkey::kDetailsResult, std::string(resultName(code)));
    if (facts.heldBy.value_or(0) != 0)
        details += '\n' + words::filled(textkey::kDetailsProcess, std::to_string(*facts.heldBy));
    if (!facts.log.empty())
        details += '\n' + words::filled(textkey::kDetailsLog, facts.log);
    return details;
}

bool isAllConfirmed(const ResultFacts& facts)
{
    return std::all_of(facts.sent.begin(), facts.sent.end(),
                       [](const auto& firmware) { return firmware.isConfirmed; });
}

// The outcome of each firmware of which bytes went out, a line each.
std::string remarksOn(const ResultFacts& facts, bool isError)
{
    if (facts.sent.empty())
        return isError ? words::plain(textkey::kResultNothingSent) : "";
    std::string remarks;
    for (const auto& firmware : facts.sent) {
        const auto* key = firmware.isConfirmed ? textkey::kResultConfirmed
            : firmware.isWhole                 ? textkey::kResultSent
                                               : textkey::kResultPartly;
        remarks += (remarks.empty() ? "" : "\n") + words::filled(key, plainText(firmware.name));
    }
    return remarks;
}

} // namespace

Alert resultMessage(int code, bool automaticEnd, const ResultFacts& facts)
{
    const auto texts = resultText(code, automaticEnd);
    const auto shown = [&texts](std::string_view key) {
        const auto found = words::plain(std::string(key).c_str());
        return texts.isError ? found : formatText(found);
    };
    Alert told;
    told.title = shown(texts.titleKey);
    told.message = shown(texts.messageKey);
    told.style = texts.isError ? AlertStyle::critical : AlertStyle::informational;
    told.defaultButton = words::plain(textkey::kOk);
    if (code != result::kNotApplicable) // its message says that nothing was sent
        told.remarks = remarksOn(facts, texts.isError);
    if (const auto key = adviceKey(code, !isAllConfirmed(facts)); !key.empty())
        told.advice = words::plain(std::string(key).c_str());
    if (facts.heldBy.has_value()) {
        told.message = words::plain(textkey::kErrorUpdateRunningMes);
        told.advice = words::plain(textkey::kErrorUpdateRunningNext);
    }
    if (!isAllConfirmed(facts))
        told.queryButton = words::plain(textkey::kCheckButton);
    told.details = detailsOf(code, facts);
    told.detailsButton = words::plain(textkey::kDetailsButton);
    return told;
}

Alert installedMessage(InstalledState state)
{
    Alert told;
    told.defaultButton = words::plain(textkey::kOk);
    if (state == InstalledState::installed) {
        told.title = words::plain(textkey::kCheckInstalledTitle);
        told.message = words::plain(textkey::kCheckInstalledMes);
        return told;
    }
    const bool isKnown = state == InstalledState::different;
    told.title =
        words::plain(isKnown ? textkey::kCheckDifferentTitle : textkey::kCheckUnknownTitle);
    told.message = words::plain(isKnown ? textkey::kCheckDifferentMes : textkey::kCheckUnknownMes);
    told.advice = words::plain(isKnown ? textkey::kCheckDifferentNext : textkey::kCheckUnknownNext);
    told.style = isKnown ? AlertStyle::critical : AlertStyle::informational;
    told.queryButton = words::plain(textkey::kCheckButton);
    return told;
}
