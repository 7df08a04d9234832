// SPDX-License-Identifier: MIT
#include "CLI/JsonText.h"

#include "UI/Text/Utf8.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD"; // U+FFFD
constexpr std::size_t kLongestNumber = 400; // a double without an exponent has up to 309 digits

std::string escaped(char character)
{
    constexpr std::string_view kShort = "\"\"\\\\\bb\ff\nn\rr\tt"; // a character and its letter
    for (std::size_t i = 0; i < kShort.size(); i += 2) {
        if (kShort[i] == character)
            return {'\\', kShort[i + 1]};
    }
    std::array<char, 8> code{};
    std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(character));
    return code.data();
}

bool needsEscape(char character)
{
    constexpr char kFirstPlain = 0x20;
    return (character >= 0 && character < kFirstPlain) || character == '"' || character == '\\';
}

std::string listed(const std::vector<Json>& items)
{
    std::string text = "[";
    for (const auto& item : items)
        text += (text.size() > 1 ? "," : "") + item.text();
    return text + "]";
}

} // namespace

Json::Json(double value)
{
    assert(std::isfinite(value));
    std::array<char, kLongestNumber> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::fixed);
    m_text.assign(digits.data(), end);
    if (m_text.find('.') == std::string::npos)
        m_text += ".0";
}

Json::Json(std::string_view text) : m_text("\"")
{
    while (!text.empty()) {
        const auto length = firstCharacter(text).length;
        if (length == 0)
            m_text += kReplacement;
        else if (length == 1 && needsEscape(text.front()))
            m_text += escaped(text.front());
        else
            m_text += text.substr(0, length);
        text.remove_prefix(length != 0 ? length : 1);
    }
    m_text += '"';
}

Json::Json(const std::vector<std::string>& texts) : m_text(listed({texts.begin(), texts.end()})) { }

Json::Json(std::initializer_list<std::pair<const char*, Json>> members) : m_text("{}")
{
    for (const auto& [key, value] : members)
        add(key, value);
}

Json Json::array(const std::vector<Json>& items)
{
    Json json;
    json.m_text = listed(items);
    return json;
}

void Json::add(const char* key, const Json& value)
{
    assert(m_text.starts_with('{'));
    m_text.pop_back();
    m_text += (m_text.size() > 1 ? ",\"" : "\"") + std::string(key) + "\":" + value.m_text + "}";
}
