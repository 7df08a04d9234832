// SPDX-License-Identifier: MIT
#include "UI/Text/PlainText.h"

#include "UI/Text/Utf8.h"

namespace {

constexpr std::string_view kCutMark = "...";

bool isControl(char32_t code)
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

bool misleads(char32_t code)
{
    return code == 0x061C || code == 0x200E || code == 0x200F // direction marks
        || code == 0x2028 || code == 0x2029 // line and paragraph separator
        || (code >= 0x202A && code <= 0x202E) // embeddings and overrides
        || (code >= 0x2066 && code <= 0x2069) // isolates
        || code == 0xFEFF; // byte-order mark
}

std::string escaped(char kind, char32_t code, int digits)
{
    std::string text{'\\', kind};
    for (int i = digits - 1; i >= 0; --i)
        text += "0123456789abcdef"[(code >> (4 * i)) & 0xF];
    return text;
}

std::string shown(std::string_view text, Utf8Character character)
{
    if (character.length == 0 || (character.length == 1 && isControl(character.code)))
        return escaped('x', character.code, 2);
    if (isControl(character.code) || misleads(character.code))
        return escaped('u', character.code, 4);
    return std::string(text.substr(0, character.length));
}

} // namespace

std::string plainText(std::string_view text, std::size_t limit)
{
    std::string plain;
    std::size_t cutAt = 0; // the last end of a unit after which the mark still fits
    while (!text.empty()) {
        const auto character = firstCharacter(text);
        const auto unit = shown(text, character);
        if (plain.size() + unit.size() > limit)
            return plain.substr(0, cutAt).append(kCutMark.substr(0, limit - cutAt));
        plain += unit;
        if (plain.size() + kCutMark.size() <= limit)
            cutAt = plain.size();
        text.remove_prefix(character.length == 0 ? 1 : character.length);
    }
    return plain;
}
