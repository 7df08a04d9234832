// SPDX-License-Identifier: MIT
#include "CLI/Fleet/PrinterLines.h"

#include "UI/Text/PlainText.h"

#include <array>

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"; // as some editors write it

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view withoutComment(std::string_view line)
{
    for (auto at = line.find('#'); at != std::string_view::npos; at = line.find('#', at + 1)) {
        if (at == 0 || kBlanks.find(line[at - 1]) != std::string_view::npos)
            return line.substr(0, at);
    }
    return line;
}

PrinterWord::Kind kindOf(std::string_view text)
{
    const bool isUri =
        text.starts_with("usb:") || text.starts_with("lpd:") || text.starts_with("net:");
    return isUri ? PrinterWord::Kind::uri : PrinterWord::Kind::address;
}

PrinterWord wordOf(std::string_view line)
{
    using Kind = PrinterWord::Kind;
    for (const auto kind : {Kind::address, Kind::queue, Kind::uri}) {
        const std::string_view option = optionOf(kind);
        if (line.starts_with(option) && line.size() > option.size()
            && kBlanks.find(line[option.size()]) != std::string_view::npos)
            return {kind, std::string(trimmed(line.substr(option.size())))};
    }
    return {kindOf(line), std::string(line)};
}

} // namespace

PrinterLines printerLines(std::string_view text)
{
    PrinterLines read;
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    for (std::size_t number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = trimmed(withoutComment(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty())
            continue;
        auto word = wordOf(line);
        if (const auto error = errorOf(word); !error.empty()) {
            read.problem = "Line " + std::to_string(number) + " of the list: " + error;
            return read;
        }
        read.printers.push_back(std::move(word));
    }
    return read;
}
