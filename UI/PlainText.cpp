#include "UI/PlainText.h"

#include <array>
#include <cstdint>

namespace {

constexpr std::string_view kCutMark = "...";

struct Character {
    char32_t code;
    std::size_t length; // bytes of its UTF-8 form; 0 when the text begins with no such form
};

std::uint8_t byteAt(std::string_view text, std::size_t index)
{
    return static_cast<std::uint8_t>(text[index]);
}

// The length that a lead byte announces; 0 for a byte that leads nothing.
std::size_t announcedLength(std::uint8_t lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0) // 0xC0 and 0xC1 could only lead an overlong form
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0; // nothing lies beyond U+10FFFF
}

bool isScalar(char32_t code, std::size_t length)
{
    constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code >= kSmallest.at(length) && code <= 0x10FFFF && !surrogate;
}

Character firstCharacter(std::string_view text)
{
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
    return isScalar(code, length) ? Character{code, length} : Character{lead, 0};
}

bool isControl(char32_t code)
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

bool misleads(char32_t code)
{
    return code == 0x061C || code == 0x200E || code == 0x200F // marks of direction
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

std::string shown(std::string_view text, Character character)
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
    std::size_t cutAt = 0; // the last end of a unit behind which the mark still fits
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
