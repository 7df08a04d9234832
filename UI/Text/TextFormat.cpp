// SPDX-License-Identifier: MIT
#include "UI/Text/TextFormat.h"

#include <optional>

namespace {

constexpr std::string_view kDirectives = "dius@1";

std::string filled(std::string_view format, std::optional<std::string_view> argument)
{
    std::string text;
    for (auto percent = format.find('%'); percent != std::string_view::npos;
         percent = format.find('%')) {
        text += format.substr(0, percent);
        const auto directive = format.substr(percent, 2);
        const auto kind = directive.size() == 2 ? directive[1] : '\0';
        const bool doubled = kind == '%';
        const bool taken = argument.has_value() && kDirectives.find(kind) != kDirectives.npos;
        if (taken)
            text += *argument;
        else
            text += '%';
        format.remove_prefix(percent + (taken || doubled ? 2 : 1));
    }
    return text.append(format);
}

} // namespace

std::string formatText(std::string_view format)
{
    return filled(format, std::nullopt);
}

std::string formatText(std::string_view format, std::string_view argument)
{
    return filled(format, argument);
}

std::string formatText(std::string_view format, std::uint32_t argument)
{
    return filled(format, std::to_string(argument));
}
