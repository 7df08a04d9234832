#include "Tools/vympack/PrintableText.h"

#include <cstddef>
#include <cstdint>

namespace vympack {

namespace {

struct Character {
    std::uint32_t code;
    std::size_t length; // bytes; 0 when they are no UTF-8
};

constexpr Character kInvalid{0, 0};

std::uint32_t byteAt(std::string_view text, std::size_t index)
{
    return static_cast<unsigned char>(text[index]);
}

// The number of bytes that a lead byte announces, 0 for a byte that leads nothing.
std::size_t announcedLength(std::uint32_t lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

// The first character of a text that is not empty; overlong forms and surrogates are no UTF-8.
Character firstCharacter(std::string_view text)
{
    constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = byteAt(text, 0);
    const auto length = announcedLength(lead);
    if (length <= 1)
        return {lead, length};
    if (text.size() < length)
        return kInvalid;
    auto code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(text, i) & 0xC0U) != 0x80)
            return kInvalid;
        code = code << 6 | (byteAt(text, i) & 0x3FU);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < kLeast[length] || code > 0x10FFFF || surrogate ? kInvalid
                                                                 : Character{code, length};
}

// Line and paragraph separators, marks and overrides of the writing direction.
bool turnsText(std::uint32_t code)
{
    return (code >= 0x200E && code <= 0x200F) || (code >= 0x2028 && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

bool isControl(std::uint32_t code)
{
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

void appendEscaped(std::string& out, std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = byteAt(bytes, i);
        out += "\\x";
        out += kDigits[byte >> 4];
        out += kDigits[byte & 0xFU];
    }
}

} // namespace

std::string printable(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const auto character = firstCharacter(text);
        const auto taken = character.length == 0 ? 1 : character.length;
        if (character.length == 0 || isControl(character.code) || turnsText(character.code))
            appendEscaped(out, text.substr(0, taken));
        else
            out += text.substr(0, taken);
        text.remove_prefix(taken);
    }
    return out;
}

} // namespace vympack
