// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/SessionText.h"

#include <algorithm>
#include <charconv>

namespace vymprinter {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::int64_t kLongestTime = 86'400'000; // a day, far below the clock's limit

// Cuts the first word off the line.
std::string_view takeWord(std::string_view& line)
{
    const auto end = std::min(line.find(' '), line.size());
    const auto word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

bool readHex(std::string_view text, Bytes& bytes)
{
    if (text.empty() || text.size() % 2 != 0)
        return false;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto high = kDigits.find(text[i]);
        const auto low = kDigits.find(text[i + 1]);
        if (high == kDigits.npos || low == kDigits.npos)
            return false;
        bytes.push_back(static_cast<std::uint8_t>(high << 4 | low));
    }
    return true;
}

bool readLine(std::string_view line, SessionLine& read)
{
    const auto time = takeWord(line);
    const auto direction = takeWord(line);
    std::int64_t milliseconds = 0;
    const auto [end, error] = std::from_chars(time.data(), time.data() + time.size(), milliseconds);
    if (error != std::errc{} || end != time.data() + time.size() || milliseconds < 0
        || milliseconds > kLongestTime || (direction != ">" && direction != "<"))
        return false;
    read.at = Millis(milliseconds);
    read.fromUpdater = direction == ">";
    return readHex(line, read.bytes);
}

} // namespace

std::string sessionText(Millis at, bool fromUpdater, ByteView bytes)
{
    auto text = std::to_string(at.count()) + (fromUpdater ? " > " : " < ");
    for (const auto byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text + '\n';
}

ParsedSession parseSession(std::string_view text)
{
    ParsedSession parsed;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const auto end = std::min(text.find('\n'), text.size());
        auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty() || line.front() == '#')
            continue;
        SessionLine read;
        read.number = number;
        if (!readLine(line, read))
            return {{}, number};
        parsed.lines.push_back(std::move(read));
    }
    return parsed;
}

} // namespace vymprinter
