// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetSummary.h"

#include "CLI/Outcome.h"
#include "UI/Text/PlainText.h"

namespace {

constexpr std::array<const char*, kMemberClasses> kWords = {
    "updated",
    "can be updated",
    "in need of nothing",
    "failed",
    "stopped",
    "not started",
    "left alone, because a person has to look at them first",
    "skipped, because they ended well before",
    "named twice"};

constexpr std::array kNeedAttention = {MemberClass::failed, MemberClass::stopped,
                                       MemberClass::notStarted, MemberClass::leftAlone};

} // namespace

int exitCodeOf(const FleetSummary& summary)
{
    if (summary.wasStopped || !summary.of(MemberClass::stopped).empty())
        return exitcode::kStopped;
    const bool isBad =
        !summary.of(MemberClass::failed).empty() || !summary.of(MemberClass::leftAlone).empty();
    return isBad ? exitcode::kObstacles : exitcode::kDone;
}

std::string countsText(const FleetSummary& summary)
{
    std::string text;
    for (std::size_t i = 0; i < kMemberClasses; ++i) {
        if (const auto count = summary.classes.at(i).size(); count != 0)
            text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + kWords.at(i);
    }
    text += ".";
    if (summary.of(MemberClass::notStarted).empty())
        return text;
    if (summary.isCanaryBad)
        text += " The rest was not started, because not all of the first printers ended well.";
    else if (summary.hadTooManyFailures)
        text += " The rest was not started, because too many failed.";
    return text;
}

std::string attentionText(const FleetSummary& summary)
{
    std::string text;
    for (const auto memberClass : kNeedAttention) {
        for (const auto& entry : summary.of(memberClass))
            text += std::string(memberClassName(memberClass)) + ": " + plainText(entry.printer)
                + (entry.message.empty() ? "" : ": " + plainText(entry.message, 1000)) + "\n";
    }
    return text;
}
