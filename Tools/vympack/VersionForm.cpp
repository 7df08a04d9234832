// SPDX-License-Identifier: MIT
#include "Tools/vympack/VersionForm.h"

#include <algorithm>

namespace vympack {

namespace {

constexpr std::size_t kLeading = 4; // characters that must be equal in both versions
constexpr std::size_t kField = 2; // digits of a major or minor number
constexpr std::size_t kDateDigits = 8;
constexpr std::size_t kMostDigits = 9; // that always fit a 32-bit number
constexpr auto kNone = std::string_view::npos;

bool digitsAt(std::string_view text, std::size_t from, std::size_t count)
{
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    const auto part = from <= text.size() ? text.substr(from, count) : std::string_view();
    return part.size() == count && std::all_of(part.begin(), part.end(), digit);
}

std::optional<VersionForm> withoutPoint(std::string_view text)
{
    if (text.size() < kLeading || text.size() > kLeading + kMostDigits)
        return std::nullopt;
    const auto digits = text.size() - kLeading;
    if (!digitsAt(text, kLeading, digits))
        return std::nullopt;
    return VersionForm{false, digits > 0, text.size()};
}

// Two digits on either side of a point.
std::optional<VersionForm> aroundPoint(std::string_view text, std::size_t point)
{
    if (point == kNone || point < kField || !digitsAt(text, point - kField, kField)
        || !digitsAt(text, point + 1, kField))
        return std::nullopt;
    return VersionForm{true, true, point + 1 + kField};
}

std::size_t pointAfter(std::string_view text, std::size_t point)
{
    return point == kNone ? kNone : text.find('.', point + 1);
}

} // namespace

std::optional<VersionForm> versionForm(std::string_view text)
{
    const auto point = text.find('.');
    switch (point) {
    case kNone:
        return withoutPoint(text);
    case kField:
    case kLeading + kField:
        return aroundPoint(text, point);
    case 8:
        return aroundPoint(text, pointAfter(text, pointAfter(text, point)));
    case kLeading + kDateDigits:
        if (!digitsAt(text, kLeading, kDateDigits))
            return std::nullopt;
        return VersionForm{true, true, point + 1};
    default:
        return std::nullopt;
    }
}

} // namespace vympack
