// SPDX-License-Identifier: MIT
#include "UI/Run/InstalledCheck.h"

#include "UI/Text/PlainText.h"
#include "VYM/AsciiCase.h"
#include "VYM/ProtocolResult.h"

#include <algorithm>

InstalledState installedState(const CheckReport& report, const std::vector<SentEntry>& sent)
{
    if (report.result != result::kSuccess || report.entries.empty())
        return InstalledState::unknown;
    const bool isAllThere = std::all_of(sent.begin(), sent.end(), [&report](const auto& entry) {
        return std::any_of(report.entries.begin(), report.entries.end(), [&](const auto& each) {
            return each.number == entry.number
                && ascii::equalNoCase(plainText(each.installedVersion), entry.version);
        });
    });
    return isAllThere ? InstalledState::installed : InstalledState::different;
}
