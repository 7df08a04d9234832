// SPDX-License-Identifier: MIT
// The properties of a stream's terminal: whether a person may be watching, whether it supports
// colours and cursor movements, and its width.
//
// Owns:    nothing.
// Threads: any; reads the environment, which no code writes.
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
// The terminal can return to the start of a line and clear it.
bool canRedraw(int descriptor);
// canRedraw, and the user has not disabled colours.
bool canColour(int descriptor, bool refused);
// In columns; 80 if unknown.
std::size_t columnsOf(int descriptor);
std::size_t rowsOf(int descriptor); // 24 if unknown
// The width for whole sentences: unlimited if no terminal would wrap them.
std::size_t textColumnsOf(int descriptor);

// How many columns a text needs on a terminal.
std::size_t columnsNeeded(std::string_view text);
// The longest prefix of text that fits into these columns.
std::string_view fitColumns(std::string_view text, std::size_t columns);
// The text in lines of this width, broken at blanks; a longer word gets a line of its own.
std::string wrapped(std::string_view text, std::size_t columns);
