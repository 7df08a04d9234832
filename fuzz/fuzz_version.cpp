// SPDX-License-Identifier: MIT
// Any three texts as the versions of an update: a byte for the version rule, then update,
// compatible and target version, separated by line feeds.
#include "VYM/ModelDependCheckVer.h"
#include "fuzz/Fuzz.h"

#include <string>

namespace {

bool isConsistent(const VersionDecision& decision)
{
    switch (decision.reason) {
    case VersionReason::applies:
        return decision.send && decision.code == result::kSuccess;
    case VersionReason::otherSeries:
    case VersionReason::noRule:
        return !decision.send && decision.code == result::kSuccess;
    case VersionReason::notNewer:
        return !decision.send && decision.code == result::kNotApplicable;
    case VersionReason::tooOld:
        return !decision.send && decision.code == result::kTooOld;
    case VersionReason::unreadableVersion:
        return !decision.send && decision.code == result::kBadReply;
    default:
        return false;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const auto rule = static_cast<yesno_type>(input.byte() % 5); // one more than there are
    // Separate copies: reading past the end is noticed.
    const std::string update(input.until('\n'));
    const std::string compatible(input.until('\n'));
    const std::string target(input.until('\n'));

    require(isConsistent(decideVersion(update, compatible, target, rule)), "code and reason");
    const auto same = decideVersion(update, compatible, update, yesno_both);
    require(same.reason != VersionReason::notNewer, "the same version goes under \"both\"");
    const auto newer = decideVersion(update, compatible, target, yesno_no);
    const auto newerOrSame = decideVersion(update, compatible, target, yesno_both);
    require(!newer.send || newerOrSame.send, "what is newer is newer or the same");
    const auto back = decideVersion(target, "", update, yesno_no);
    const bool sameForm = update.find('.') == target.find('.') && update.find('.') != 8;
    require(!sameForm || !newer.send || !back.send, "not newer than each other");
    return 0;
}
