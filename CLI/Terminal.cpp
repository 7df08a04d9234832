#include "CLI/Terminal.h"

#include <algorithm>
#include <cstdlib>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr std::size_t kUsualColumns = 80;
// Without the user's locale, narrow and wide characters look the same. Counting all as wide makes a
// line at worst shorter than necessary, but it never wraps.
constexpr std::size_t kWideColumns = 2;

std::string_view environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool continuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

std::size_t columnsOfByte(char c)
{
    if (continuesCharacter(c))
        return 0;
    return static_cast<unsigned char>(c) < 0x80 ? 1 : kWideColumns;
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

std::size_t textColumnsOf(int descriptor)
{
    return isTerminal(descriptor) ? columnsOf(descriptor) : std::string::npos;
}

std::size_t columnsNeeded(std::string_view text)
{
    std::size_t columns = 0;
    for (const char c : text)
        columns += columnsOfByte(c);
    return columns;
}

std::string_view fitColumns(std::string_view text, std::size_t columns)
{
    std::size_t used = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        used += columnsOfByte(text[i]);
        if (used > columns)
            return text.substr(0, i);
    }
    return text;
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
