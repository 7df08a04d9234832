// SPDX-License-Identifier: MIT
#include "UI/Text/Utf8.h"

#include <array>
#include <cassert>
#include <cstdint>

namespace {

std::uint8_t byteAt(std::string_view text, std::size_t index)
{
    return static_cast<std::uint8_t>(text[index]);
}

// The length that a lead byte announces; 0 for any other byte.
std::size_t announcedLength(std::uint8_t lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0) // 0xC0 and 0xC1 begin only overlong forms
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0; // U+10FFFF is the last character
}

bool isScalar(char32_t code, std::size_t length)
{
    constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code >= kSmallest.at(length) && code <= 0x10FFFF && !surrogate;
}

} // namespace

Utf8Character firstCharacter(std::string_view text)
{
    assert(!text.empty());
    const auto lead = byteAt(text, 0);
    const auto length = announcedLength(lead);
    if (length == 0 || length > text.size())
        return {lead, 0};
    char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(text, i) & 0xC0U) != 0x80)
            return {lead, 0};
        code = code << 6 | (byteAt(text, i) & 0x3FU);
    }
    return isScalar(code, length) ? Utf8Character{code, length} : Utf8Character{lead, 0};
}
