// SPDX-License-Identifier: MIT
#include "UI/Support/DecodedText.h"

#include "VYM/AsciiCase.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <optional>

namespace {

// A port string in a URI in a JSON text has three; more are no text that a person passes on.
constexpr int kMostEncodings = 4;

int digitOf(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    c = ascii::lower(c);
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::optional<unsigned> hexAt(std::string_view text, std::size_t at, std::size_t digits)
{
    if (at + digits > text.size())
        return std::nullopt;
    unsigned number = 0;
    for (const char c : text.substr(at, digits)) {
        if (digitOf(c) < 0)
            return std::nullopt;
        number = number * 16 + static_cast<unsigned>(digitOf(c));
    }
    return number;
}

std::string utf8Of(unsigned code)
{
    const auto byte = [](unsigned value) { return static_cast<char>(value); };
    const auto last = byte(0x80 | (code & 0x3F));
    if (code < 0x80)
        return {byte(code)};
    if (code < 0x800)
        return {byte(0xC0 | (code >> 6)), last};
    return {byte(0xE0 | (code >> 12)), byte(0x80 | ((code >> 6) & 0x3F)), last};
}

struct Unit {
    std::string bytes;
    std::size_t length; // in the encoded text
};

Unit escapedUnit(std::string_view text)
{
    assert(text.size() > 1);
    constexpr std::string_view kLetters = "nrt\\\"/";
    constexpr std::string_view kMeanings = "\n\r\t\\\"/";
    if (const auto code = text[1] == 'u' ? hexAt(text, 2, 4) : std::nullopt)
        return {utf8Of(*code), 6};
    if (const auto code = text[1] == 'x' ? hexAt(text, 2, 2) : std::nullopt)
        return {{static_cast<char>(*code)}, 4};
    const auto at = kLetters.find(text[1]);
    return at != std::string_view::npos ? Unit{{kMeanings[at]}, 2} : Unit{{text[0]}, 1};
}

Unit firstUnit(std::string_view text)
{
    assert(!text.empty());
    if (text[0] == '\\' && text.size() > 1)
        return escapedUnit(text);
    const auto code = text[0] == '%' ? hexAt(text, 1, 2) : std::nullopt;
    return code.has_value() ? Unit{{static_cast<char>(*code)}, 3} : Unit{{text[0]}, 1};
}

DecodedText decodedOnce(const DecodedText& from)
{
    DecodedText to;
    const std::string_view text = from.text;
    for (std::size_t at = 0; at < text.size();) {
        const auto unit = firstUnit(text.substr(at));
        // Each byte of a character begins where the character does.
        to.begins.insert(to.begins.end(), unit.bytes.size(), from.begins[at]);
        to.text += unit.bytes;
        at += unit.length;
    }
    to.begins.push_back(from.begins.back());
    return to;
}

} // namespace

DecodedText decodedText(std::string_view original)
{
    DecodedText decoded;
    decoded.text = original;
    decoded.begins.resize(original.size() + 1);
    for (std::size_t i = 0; i < decoded.begins.size(); ++i)
        decoded.begins[i] = i;
    for (int i = 0; i < kMostEncodings; ++i) {
        auto next = decodedOnce(decoded);
        const bool isPlain = next.text.size() == decoded.text.size();
        decoded = std::move(next);
        if (isPlain)
            break;
    }
    decoded.text = ascii::lowerCase(decoded.text);
    return decoded;
}
