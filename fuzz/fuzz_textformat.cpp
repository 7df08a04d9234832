// SPDX-License-Identifier: MIT
// Any text as a format, with any text or number as its argument.
#include "UI/Text/TextFormat.h"
#include "fuzz/Fuzz.h"

#include <string>

namespace {

std::string doubled(std::string_view text)
{
    std::string twice;
    for (const char c : text)
        twice.append(c == '%' ? 2 : 1, c);
    return twice;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const auto number = static_cast<std::uint32_t>(input.number());
    const auto argument = input.until('\0');
    const auto format = input.text(size);
    const auto percents = static_cast<std::size_t>(std::count(format.begin(), format.end(), '%'));
    const auto text = formatText(format, argument);
    require(text.size() <= format.size() + percents * argument.size(),
            "nothing but the text and the argument is shown");
    require(percents != 0 || text == format, "a text without percent signs stays");
    require(formatText(doubled(format), argument) == format, "a doubled sign shows one");
    require(formatText(format, number) == formatText(format, std::to_string(number)),
            "a number is shown as its digits");
    require(formatText(format).size() <= format.size(), "no argument adds nothing");
    return 0;
}
