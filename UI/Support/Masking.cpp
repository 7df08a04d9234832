// SPDX-License-Identifier: MIT
#include "UI/Support/Masking.h"

#include "UI/Support/DecodedText.h"
#include "UI/Support/MarkedNames.h"
#include "UI/Text/PlainText.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace {

// A serial number of this length is no part of a word by chance.
constexpr std::size_t kUnmistakable = 6;
constexpr std::size_t kShortestWord = 3; // a shorter value is a part of too many sentences

// Words of reports and logs that are also names of people and computers.
constexpr std::array<std::string_view, 31> kOrdinary = {
    "address",  "admin",   "computer", "cups",    "debian", "desktop",   "doctor",   "file",
    "firmware", "host",    "laptop",   "linux",   "local",  "localhost", "log",      "maker",
    "model",    "network", "office",   "package", "port",   "printer",   "printers", "queue",
    "root",     "server",  "system",   "update",  "usb",    "user",      "vymkit"};

constexpr std::array<std::string_view, 8> kKindNames = {
    "user", "home", "this-computer", "serial", "host", "address", "package", "folder"};

bool marksName(char c)
{
    return std::string_view("/@=\\\"'").find(c) != std::string_view::npos;
}

bool isPath(Masking::Kind kind)
{
    return kind == Masking::Kind::home || kind == Masking::Kind::folder;
}

std::string comparable(Masking::Kind kind, const std::string& value)
{
    auto plain = decodedText(value).text;
    while (isPath(kind) && plain.size() > 1 && plain.back() == '/')
        plain.pop_back();
    return plain;
}

// The name without its domain; empty if it has none.
std::string shortName(Masking::Kind kind, const std::string& value)
{
    const bool isName = kind == Masking::Kind::host || kind == Masking::Kind::computer;
    const auto dot = value.find('.');
    if (!isName || dot == std::string::npos || value.find_first_of(" []:") != std::string::npos)
        return {};
    return value.substr(0, dot);
}

} // namespace

// Whether an occurrence of the value counts.
bool Masking::fits(std::string_view text, std::size_t at, std::size_t length, const Secret& secret)
{
    assert(length != 0 && length <= text.size() && at <= text.size() - length);
    const char before = at == 0 ? ' ' : text[at - 1];
    const char after = at + length == text.size() ? ' ' : text[at + length];
    if ((isOfWord(text[at]) && isOfWord(before))
        || (isOfWord(text[at + length - 1]) && isOfWord(after)))
        return secret.isLoose;
    return !secret.isWeak || marksName(before) || marksName(after);
}

void Masking::add(Kind kind, std::string value, const std::string& standIn)
{
    if (std::none_of(value.begin(), value.end(), isOfWord))
        return;
    const bool isWeak = value.size() < kShortestWord
        || std::find(kOrdinary.begin(), kOrdinary.end(), value) != kOrdinary.end();
    const bool isLoose = kind == Kind::serial && value.size() >= kUnmistakable;
    m_lengths.insert(value.size());
    m_secrets.try_emplace(std::move(value), Secret{standIn, isWeak, isLoose && !isWeak});
}

// The usual one of its kind has no number.
std::string Masking::nextStandIn(Kind kind)
{
    const auto number = ++m_counts[kind];
    std::string name(kKindNames.at(static_cast<std::size_t>(kind)));
    const bool isUsual = kind <= Kind::computer && number == 1;
    return "<" + (isUsual ? name : name + "-" + std::to_string(number)) + ">";
}

void Masking::hide(Kind kind, const std::string& value)
{
    hide(kind, std::vector{value});
}

void Masking::hide(Kind kind, const std::vector<std::string>& spellings)
{
    std::vector<std::string> values;
    for (const auto& each : spellings) {
        values.push_back(comparable(kind, each));
        values.push_back(shortName(kind, values.back()));
        // A text too long for a line is shown without its end.
        if (each.size() > kDisplayLimit)
            values.push_back(comparable(kind, each.substr(0, kDisplayLimit - 3)));
    }
    const auto isNew = [this](const auto& value) {
        return std::any_of(value.begin(), value.end(), isOfWord) && !m_secrets.contains(value);
    };
    if (std::none_of(values.begin(), values.end(), isNew))
        return;
    std::string standIn;
    for (const auto& value : values) {
        if (const auto same = m_secrets.find(value); standIn.empty() && same != m_secrets.end())
            standIn = same->second.standIn;
    }
    if (standIn.empty())
        standIn = nextStandIn(kind);
    for (auto& value : values)
        add(kind, std::move(value), standIn);
}

void Masking::hideMarked(std::string_view text)
{
    for (const auto& name : markedNames(text))
        hide(name.kind == MarkedName::Kind::serial     ? Kind::serial
                 : name.kind == MarkedName::Kind::host ? Kind::host
                                                       : Kind::address,
             name.value);
}

const Masking::Secret* Masking::secretAt(std::string_view text, std::size_t at,
                                         std::size_t& length) const
{
    for (const auto each : m_lengths) {
        const auto found =
            each <= text.size() - at ? m_secrets.find(text.substr(at, each)) : m_secrets.end();
        if (found == m_secrets.end() || !fits(text, at, each, found->second))
            continue;
        length = each;
        return &found->second;
    }
    return nullptr;
}

std::string Masking::masked(std::string_view text) const
{
    const auto decoded = decodedText(text);
    assert(decoded.begins.size() == decoded.text.size() + 1);
    std::string result;
    for (std::size_t at = 0; at < decoded.text.size();) {
        std::size_t length = 1;
        const auto* secret = secretAt(decoded.text, at, length);
        const auto begin = decoded.begins[at];
        const auto end = decoded.begins[at + length];
        result += secret != nullptr ? secret->standIn : text.substr(begin, end - begin);
        at += length;
    }
    return result;
}
