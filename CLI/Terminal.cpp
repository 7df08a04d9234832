// SPDX-License-Identifier: MIT
#include "CLI/Terminal.h"

#include "UI/Text/Utf8.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cwchar>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr std::size_t kUsualColumns = 80;
constexpr std::size_t kUsualRows = 24;
// Without the system's table of widths, characters count as wide: a line is at worst shorter than
// necessary, but it never wraps.
constexpr std::size_t kWideColumns = 2;

std::string_view environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

// The system's table of widths, for any user's locale: an accented letter takes one column, a
// Japanese one two, a combining mark zero.
std::size_t columnsOfCharacter(std::uint32_t code)
{
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (code < 0x80)
        return 1;
    if (utf8 == nullptr)
        return kWideColumns;
    const auto former = uselocale(utf8);
    const int columns = wcwidth(static_cast<wchar_t>(code));
    uselocale(former);
    return columns >= 0 ? static_cast<std::size_t>(columns) : 1;
}

struct Measured {
    std::size_t bytes;
    std::size_t columns;
};

// The first character of a text that is not empty; an invalid byte counts as one.
Measured firstOf(std::string_view text)
{
    const auto character = firstCharacter(text);
    if (character.length == 0)
        return {1, 1};
    return {character.length, columnsOfCharacter(character.code)};
}

} // namespace

bool isTerminal(int descriptor)
{
    return isatty(descriptor) == 1;
}

bool canRedraw(int descriptor)
{
    const auto term = environment("TERM");
    return isTerminal(descriptor) && !term.empty() && term != "dumb";
}

bool canColour(int descriptor, bool refused)
{
    return !refused && environment("NO_COLOR").empty() && canRedraw(descriptor);
}

std::size_t columnsOf(int descriptor)
{
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return kUsualColumns;
    return size.ws_col;
}

std::size_t rowsOf(int descriptor)
{
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_row == 0)
        return kUsualRows;
    return size.ws_row;
}

std::size_t textColumnsOf(int descriptor)
{
    return isTerminal(descriptor) ? columnsOf(descriptor) : std::string::npos;
}

std::size_t columnsNeeded(std::string_view text)
{
    std::size_t columns = 0;
    while (!text.empty()) {
        const auto [bytes, needed] = firstOf(text);
        columns += needed;
        text.remove_prefix(bytes);
    }
    return columns;
}

std::string_view fitColumns(std::string_view text, std::size_t columns)
{
    std::size_t used = 0;
    std::size_t end = 0;
    while (end < text.size()) {
        const auto [bytes, needed] = firstOf(text.substr(end));
        if (used + needed > columns)
            break;
        used += needed;
        end += bytes;
    }
    return text.substr(0, end);
}

std::string wrapped(std::string_view text, std::size_t columns)
{
    std::string lines;
    std::size_t used = 0;
    while (!text.empty()) {
        const auto word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        const auto needed = columnsNeeded(word);
        const bool fits = used + 1 + needed <= columns;
        if (used != 0)
            lines += fits ? ' ' : '\n';
        used = used != 0 && fits ? used + 1 + needed : needed;
        lines += word;
    }
    return lines;
}
