// SPDX-License-Identifier: MIT
#include "VYM/ModelDependCheckVer.h"

#include <algorithm>
#include <compare>
#include <optional>

namespace {

constexpr std::size_t kLeading = 4; // characters that name the series
constexpr std::size_t kField = 2; // digits of a major or minor number
constexpr std::size_t kLongForm = 12; // four leading characters and eight digits

constexpr VersionDecision kSend{true, result::kSuccess, VersionReason::applies};
constexpr VersionDecision kOtherSeries{false, result::kSuccess, VersionReason::otherSeries};
// The form has no answer for this value of the version rule: sends nothing, without an error.
constexpr VersionDecision kNoRule{false, result::kSuccess, VersionReason::noRule};
constexpr VersionDecision kNotNewer{false, result::kNotApplicable, VersionReason::notNewer};
constexpr VersionDecision kTooOld{false, result::kTooOld, VersionReason::tooOld};
constexpr VersionDecision kUnreadable{false, result::kBadReply, VersionReason::unreadableVersion};

bool areDigits(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string_view digitsAtFront(std::string_view text)
{
    return text.substr(0, std::min(text.find_first_not_of("0123456789"), text.size()));
}

// Compares decimal numbers of any length.
std::strong_ordering compareNumbers(std::string_view left, std::string_view right)
{
    const auto bare = [](std::string_view digits) {
        return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
    };
    left = bare(left);
    right = bare(right);
    if (left.size() != right.size())
        return left.size() <=> right.size();
    return left <=> right;
}

// Missing characters count as different: an empty or short version is of another series.
bool sameSeries(std::string_view update, std::string_view target)
{
    return target.size() >= kLeading && update.substr(0, kLeading) == target.substr(0, kLeading);
}

VersionDecision byRule(std::strong_ordering updateToTarget, yesno_type rule)
{
    if (rule == yesno_no)
        return updateToTarget > 0 ? kSend : kNotNewer;
    if (rule == yesno_both)
        return updateToTarget >= 0 ? kSend : kNotNewer;
    return kNoRule;
}

struct MajorMinor {
    std::string_view major;
    std::string_view minor;
};

// The two-digit fields at those positions; empty if the text is too short or has no digits there.
std::optional<MajorMinor> fieldsAt(std::string_view text, std::size_t major, std::size_t minor)
{
    if (text.size() < minor + kField)
        return std::nullopt;
    const MajorMinor fields{text.substr(major, kField), text.substr(minor, kField)};
    if (!areDigits(fields.major) || !areDigits(fields.minor))
        return std::nullopt;
    return fields;
}

// A higher major number is sent under every rule; otherwise the rule applies to the minor number.
VersionDecision decideFields(std::string_view update, std::string_view target, std::size_t major,
                             std::size_t minor, yesno_type rule)
{
    const auto u = fieldsAt(update, major, minor);
    const auto t = fieldsAt(target, major, minor);
    if (!u || !t)
        return kUnreadable;
    const auto majors = compareNumbers(u->major, t->major);
    if (majors > 0)
        return kSend;
    return byRule(majors == 0 ? compareNumbers(u->minor, t->minor) : majors, rule);
}

// Four leading characters, then digits. Here "yes" sends any version.
VersionDecision decideWithoutPoint(std::string_view update, std::string_view compatible,
                                   std::string_view target, yesno_type rule)
{
    if (update.size() < kLeading)
        return kUnreadable; // a mistake of the package, whatever the printer has
    if (!sameSeries(update, target))
        return kOtherSeries;
    const auto u = update.substr(kLeading);
    const auto t = target.substr(kLeading);
    if (!areDigits(u) || !areDigits(t))
        return kUnreadable;
    if (!compatible.empty()) {
        const auto c = compatible.substr(std::min(kLeading, compatible.size()));
        if (compareNumbers(t, digitsAtFront(c)) < 0)
            return kTooOld;
    }
    return rule == yesno_yes ? kSend : byRule(compareNumbers(u, t), rule);
}

// Four leading characters, two digits, a point, two digits.
VersionDecision decideSeriesFields(std::string_view update, std::string_view target,
                                   yesno_type rule)
{
    if (!sameSeries(update, target))
        return kOtherSeries;
    return decideFields(update, target, 4, 7, rule);
}

// Three points: the fields are around the third one, at its position in the update's version.
VersionDecision decideThirdPoint(std::string_view update, std::string_view target, yesno_type rule,
                                 std::size_t firstPoint)
{
    const auto second = update.find('.', firstPoint + 1);
    const auto third = second != std::string_view::npos ? update.find('.', second + 1) : second;
    if (third == std::string_view::npos)
        return kUnreadable;
    return decideFields(update, target, third - kField, third + 1, rule);
}

// Four leading characters and eight digits before the point.
VersionDecision decideLong(std::string_view update, std::string_view target, yesno_type rule)
{
    if (!sameSeries(update, target))
        return kOtherSeries;
    if (target.size() < kLongForm)
        return kUnreadable;
    const auto u = update.substr(kLeading, kLongForm - kLeading);
    const auto t = target.substr(kLeading, kLongForm - kLeading);
    if (!areDigits(u) || !areDigits(t))
        return kUnreadable;
    return byRule(compareNumbers(u, t), rule);
}

} // namespace

VersionDecision decideVersion(std::string_view update, std::string_view compatible,
                              std::string_view target, yesno_type allowVersionDown)
{
    const auto point = update.find('.');
    switch (point) {
    case std::string_view::npos:
        return decideWithoutPoint(update, compatible, target, allowVersionDown);
    case 2:
        return decideFields(update, target, 0, 3, allowVersionDown);
    case 6:
        return decideSeriesFields(update, target, allowVersionDown);
    case 8:
        return decideThirdPoint(update, target, allowVersionDown, point);
    case kLongForm:
        return decideLong(update, target, allowVersionDown);
    default:
        return kUnreadable;
    }
}
