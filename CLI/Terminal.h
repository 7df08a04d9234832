// What stands at the far end of a stream: whether a person may look at it, whether it knows
// colours and cursor movements, and how wide it is.
//
// Owns:    nothing.
// Threads: any; reads the environment, which nobody writes.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

// The descriptors of a program's three streams.
struct Console {
    int in = 0;
    int out = 1;
    int err = 2;
};

bool isTerminal(int descriptor);
// A terminal that can go back to the start of a line and clear it.
bool canRedraw(int descriptor);
// canRedraw, and nobody refused colours.
bool canColour(int descriptor, bool refused);
// In columns; 80 where the stream does not tell.
std::size_t columnsOf(int descriptor);
// How wide whole sentences may be: no limit where no terminal would break them.
std::size_t textColumnsOf(int descriptor);

// How many columns a text may need: one for each ASCII character, two for any other.
std::size_t columnsNeeded(std::string_view text);
// The longest front of text that needs no more than so many columns.
std::string_view fitColumns(std::string_view text, std::size_t columns);
// The text in lines of so many columns, broken at blanks; a longer word gets a line of its own.
std::string wrapped(std::string_view text, std::size_t columns);
