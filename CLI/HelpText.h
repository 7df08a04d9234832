// SPDX-License-Identifier: MIT
// The text of --help: all that the program can do, on one page.
#pragma once
#include <string_view>

extern const std::string_view kHelpText;
std::string_view commandsText(); // the commands alone, without a line end
