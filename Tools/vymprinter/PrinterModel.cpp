// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/PrinterModel.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace vymprinter {
namespace {

constexpr std::string_view kRowEnd = "\r\n";
constexpr std::string_view kBlanks = " \t";
constexpr std::array kCommands = {"5001", "5002", "5101", "5102"}; // what every printer supports

char upper(char letter)
{
    return static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
}

bool beginsWith(std::string_view row, std::string_view key)
{
    return row.size() >= key.size()
        && std::equal(key.begin(), key.end(), row.begin(),
                      [](char a, char b) { return upper(a) == upper(b); });
}

// Cuts the first row off the text, including its end.
std::string_view takeRow(std::string_view& text)
{
    const auto end = text.find(kRowEnd);
    const auto row = text.substr(0, end == text.npos ? end : end + kRowEnd.size());
    text.remove_prefix(row.size());
    return row;
}

std::string quoted(const std::string& value)
{
    return value.find_first_of(kBlanks) == value.npos ? value : '"' + value + '"';
}

} // namespace

void installUpdate(PrinterModel& model)
{
    for (const auto& update : model.updated) {
        const auto installed =
            std::find_if(model.firmware.begin(), model.firmware.end(),
                         [&](const auto& each) { return each.name == update.name; });
        if (installed != model.firmware.end())
            installed->version = update.version;
        else
            model.firmware.push_back(update);
    }
}

std::string targetInfoText(const PrinterModel& model)
{
    if (model.targetInfo)
        return *model.targetInfo;
    std::string text = "TGMNAME " + quoted(model.name) + "\r\n";
    for (const auto& firmware : model.firmware)
        text += "VERSION " + firmware.name + '=' + firmware.version + "\r\n";
    text += "MAXPACKET " + std::to_string(model.maxPacket) + "\r\n";
    for (const auto* code : kCommands)
        text += std::string("SUPPORT_COMMAND ") + code + "\r\n";
    if (model.statusQuery)
        text += "SUPPORT_COMMAND 5103\r\n";
    return text;
}

std::uint32_t packetLimit(const PrinterModel& model)
{
    const auto row = rowValue(targetInfoText(model), "MAXPACKET").value_or("");
    std::uint32_t limit = 0;
    const auto [end, error] = std::from_chars(row.data(), row.data() + row.size(), limit);
    const bool usable = error == std::errc{} && limit >= kSmallestPacket && limit <= kLargestPacket;
    return usable ? limit : model.maxPacket;
}

std::uint32_t blockLimit(const PrinterModel& model)
{
    return std::min({kFirstReplyLimit, packetLimit(model), model.blockSize});
}

std::string withoutRows(std::string_view text, std::string_view key)
{
    std::string kept;
    while (!text.empty()) {
        const auto row = takeRow(text);
        if (!beginsWith(row, key))
            kept += row;
    }
    return kept;
}

std::optional<std::string> rowValue(std::string_view text, std::string_view key)
{
    while (!text.empty()) {
        const auto row = takeRow(text);
        if (!beginsWith(row, key))
            continue;
        const auto value = row.substr(0, row.find(kRowEnd));
        const auto keyEnd = std::min(value.find_first_of(kBlanks), value.size());
        const auto begin = std::min(value.find_first_not_of(kBlanks, keyEnd), value.size());
        return std::string(value.substr(begin));
    }
    return std::nullopt;
}

} // namespace vymprinter
