// SPDX-License-Identifier: MIT
#include "Tools/vympack/VersionSamples.h"

#include "Tools/vympack/VersionForm.h"

#include <algorithm>
#include <cassert>
#include <optional>

namespace vympack {

namespace {

constexpr std::size_t kSeriesLength = 4; // leading characters of the forms that have a series
constexpr std::size_t kDigits = 2; // digits on either side of a point
constexpr const char* kUnreadable = "?"; // of no form

// A range of digits in a version.
struct Field {
    std::size_t begin;
    std::size_t size;
};

struct Fields {
    bool series = false;
    Field major{0, 0}; // size 0: the form has only one number
    Field minor{0, 0};
};

Fields fieldsOf(std::string_view version)
{
    const auto point = version.find('.');
    if (point == version.npos)
        return {true,
                {0, 0},
                {kSeriesLength, version.size() - std::min(kSeriesLength, version.size())}};
    if (point == 12)
        return {true, {0, 0}, {kSeriesLength, point - kSeriesLength}};
    auto parting = point;
    if (point == 8)
        parting = version.find('.', version.find('.', point + 1) + 1);
    return {point == kSeriesLength + kDigits, {parting - kDigits, kDigits}, {parting + 1, kDigits}};
}

// The version with the number in a field one higher or lower; empty if that is impossible.
std::optional<std::string> stepped(std::string_view version, Field field, bool up)
{
    assert(field.begin <= version.size() && field.size <= version.size() - field.begin);
    std::string text(version);
    for (auto i = field.begin + field.size; i-- > field.begin;) {
        auto& digit = text[i];
        if (digit != (up ? '9' : '0')) {
            digit = static_cast<char>(digit + (up ? 1 : -1));
            return text;
        }
        digit = up ? '0' : '9';
    }
    return std::nullopt;
}

std::string otherSeries(std::string_view version)
{
    std::string text(version);
    text.front() = text.front() == 'Z' ? 'Y' : 'Z';
    return text;
}

// Of the same series, with a letter where a digit is compared. For numbered versions only.
std::string unreadable(std::string_view version, const Fields& fields)
{
    assert(fields.minor.size != 0);
    std::string text(version);
    text[fields.minor.begin + fields.minor.size - 1] = 'X';
    return text;
}

std::string belowCompatible(std::string_view update, std::string_view compatible)
{
    const bool counts = update.find('.') == update.npos && compatible.size() > kSeriesLength;
    if (!counts)
        return {};
    const auto installed =
        std::string(update.substr(0, kSeriesLength)).append(compatible.substr(kSeriesLength));
    return stepped(installed, {kSeriesLength, installed.size() - kSeriesLength}, false)
        .value_or("");
}

} // namespace

std::vector<VersionSample> versionSamples(std::string_view update, std::string_view compatible)
{
    const auto form = versionForm(update);
    if (!form || !form->numbered)
        return {{"the same", std::string(update)}, {"unreadable", kUnreadable}};
    const auto fields = fieldsOf(update);
    const auto major = [&](bool up) {
        return fields.major.size == 0 ? std::string()
                                      : stepped(update, fields.major, up).value_or("");
    };
    return {{"older", stepped(update, fields.minor, false).value_or("")},
            {"the same", std::string(update)},
            {"newer", stepped(update, fields.minor, true).value_or("")},
            {"lower major number", major(false)},
            {"higher major number", major(true)},
            {"below COMPATIBLE", belowCompatible(update, compatible)},
            {"another series", fields.series ? otherSeries(update) : std::string()},
            {"unreadable", unreadable(update, fields)}};
}

const char* formText(std::string_view version)
{
    if (!versionForm(version))
        return "a form that cannot be compared";
    switch (version.find('.')) {
    case std::string_view::npos:
        return "four characters and digits";
    case 2:
        return "NN.NN";
    case 6:
        return "four characters and NN.NN";
    case 8:
        return "NN.NN around the third point";
    default:
        return "four characters and eight digits";
    }
}

} // namespace vympack
